// The handheld's screen on the desktop: a window of 240 x 320 pixels that the shell library makes of a
// program's full-screen dialog and marks with a property.
#pragma once
#include <windows.h>

namespace handheld {

inline constexpr int kScreenWidth = 240;
inline constexpr int kScreenHeight = 320;
inline constexpr wchar_t kScreenProperty[] = L"HandheldScreen";

inline bool IsScreen(HWND window) {
    return window && GetPropW(window, kScreenProperty);
}

// The process's topmost screen, or null.
HWND FindScreen();

// The screen that a window belongs to: itself or the nearest owner; without one the process's topmost, or
// null.
HWND ScreenOf(HWND window);

// Where the screen of a window is, or would be: centred on the desktop's work area.
RECT ScreenRectangle(HWND window);

}  // namespace handheld
