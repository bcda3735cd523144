#include "handheld/coredll/screen.h"

namespace handheld {

HWND FindScreen() {
    HWND found = nullptr;
    EnumWindows(
        [](HWND window, LPARAM result) -> BOOL {
            DWORD process;
            GetWindowThreadProcessId(window, &process);
            if (process != GetCurrentProcessId() || !IsScreen(window)) return TRUE;
            *reinterpret_cast<HWND*>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

HWND ScreenOf(HWND window) {
    for (HWND top = window ? GetAncestor(window, GA_ROOT) : nullptr; top; top = GetWindow(top, GW_OWNER))
        if (IsScreen(top)) return top;
    return FindScreen();
}

RECT ScreenRectangle(HWND window) {
    RECT rectangle;
    HWND screen = ScreenOf(window);
    if (screen && GetWindowRect(screen, &rectangle)) return rectangle;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &rectangle, 0);
    rectangle.left += (rectangle.right - rectangle.left - kScreenWidth) / 2;
    rectangle.top += (rectangle.bottom - rectangle.top - kScreenHeight) / 2;
    rectangle.right = rectangle.left + kScreenWidth;
    rectangle.bottom = rectangle.top + kScreenHeight;
    return rectangle;
}

}  // namespace handheld
