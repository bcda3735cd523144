// The handheld's help viewer.
#include "handheld/peghelp/help_window.h"
#include "handheld/peghelp/page_names.h"

namespace {

constexpr wchar_t kName[] = L"HandheldHelpViewer";

}  // namespace

// Started again it comes to the front, as every program of the handheld does.
int WINAPI wWinMain(HINSTANCE module, HINSTANCE, LPWSTR commandLine, int) {
    CreateMutexW(nullptr, FALSE, kName);  // gone with the process
    if (GetLastError() == ERROR_ALREADY_EXISTS) {
        SetForegroundWindow(FindWindowW(kName, nullptr));
        return 0;
    }
    return help::CHelpWindow(help::PageArgument(commandLine)).Run(module, kName);
}
