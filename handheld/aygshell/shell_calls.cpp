// The shell library's calls.  Those about the input panel and the application keys have nothing to do on a
// desktop and report what a handheld with its panel down and no key taken would.
#include "handheld/aygshell/menu_bar.h"
#include "handheld/aygshell/screen_window.h"

using namespace handheld;

namespace {

constexpr DWORD kFullScreenFlags = SHIDIF_SIZEDLG | SHIDIF_SIZEDLGFULLSCREEN;
constexpr DWORD kDoneButtonShown = 1;

BOOL Refuse(DWORD error) {
    SetLastError(error);
    return FALSE;
}

}  // namespace

extern "C" {

// Without a flag for the size a dialog stays as its template says.
BOOL WINAPI SHInitDialog(SHINITDLGINFO* info) {
    if (!info || !IsWindow(info->hDlg)) return Refuse(ERROR_INVALID_PARAMETER);
    if (info->dwMask & SHIDIM_FLAGS && info->dwFlags & kFullScreenFlags)
        CScreen::Make(info->hDlg, (info->dwFlags & SHIDIF_DONEBUTTON) != 0);
    return TRUE;
}

// A window that gets a menu bar fills the screen from then on.
BOOL WINAPI SHCreateMenuBar(SHMENUBARINFO* info) {
    if (!info || info->cbSize != sizeof *info || !IsWindow(info->hwndParent))
        return Refuse(ERROR_INVALID_PARAMETER);
    info->hwndMB = CMenuBar::Create(*info);
    if (!info->hwndMB) return FALSE;
    if (!CScreen::From(info->hwndParent)) CScreen::Make(info->hwndParent, false);
    CScreen::From(info->hwndParent)->SetBar(info->hwndMB);
    return TRUE;
}

HWND WINAPI SHFindMenuBar(HWND window) {
    const CScreen* screen = CScreen::From(window);
    return screen ? screen->Bar() : nullptr;
}

BOOL WINAPI SHDoneButton(HWND window, DWORD state) {
    CScreen* screen = CScreen::From(window);
    if (!screen) return Refuse(ERROR_INVALID_WINDOW_HANDLE);
    screen->SetDoneButton(state == kDoneButtonShown);
    return TRUE;
}

BOOL WINAPI SHFullScreen(HWND window, DWORD) {
    return IsWindow(window);
}

BOOL WINAPI SHSipPreference(HWND window, int) {
    return IsWindow(window);
}

BOOL WINAPI SHHandleWMActivate(HWND window, WPARAM, LPARAM, void*, DWORD) {
    return IsWindow(window);
}

BOOL WINAPI SHHandleWMSettingChange(HWND window, WPARAM, LPARAM, void*) {
    return IsWindow(window);
}

BYTE WINAPI SHGetAppKeyAssoc(LPCWSTR) {
    return 0;
}

BOOL WINAPI SHSetAppKeyWndAssoc(BYTE, HWND window) {
    return IsWindow(window);
}

BOOL WINAPI SHInitExtraControls() {
    return TRUE;
}

}  // extern "C"
