// The handheld's help viewer.
#include "handheld/peghelp/help_window.h"
#include "handheld/peghelp/page_names.h"

int WINAPI wWinMain(HINSTANCE module, HINSTANCE, LPWSTR commandLine, int) {
    return help::CHelpWindow(help::PageArgument(commandLine)).Run(module, L"HandheldHelpViewer");
}
