// The handheld's picture viewer.
#include "handheld/companion/command_line.h"
#include "handheld/korvoimgview/viewer_window.h"

int WINAPI wWinMain(HINSTANCE module, HINSTANCE, LPWSTR commandLine, int) {
    return viewer::CViewerWindow(handheld::PathArgument(commandLine)).Run(module, L"HandheldPictureViewer");
}
