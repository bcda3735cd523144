// The handheld's picture viewer.
#include "handheld/korvoimgview/viewer_window.h"

int WINAPI wWinMain(HINSTANCE module, HINSTANCE, LPWSTR commandLine, int) {
    return viewer::CViewerWindow(viewer::PathArgument(commandLine)).Run(module, L"HandheldPictureViewer");
}
