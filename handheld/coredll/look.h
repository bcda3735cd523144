// How the handheld's shell draws: colours, fonts and title strips, shared by the core and the shell library.
#pragma once
#include <windows.h>

namespace handheld {

inline constexpr COLORREF kTitleColour = RGB(0, 0, 128);
inline constexpr COLORREF kTitleTextColour = RGB(255, 255, 255);
inline constexpr COLORREF kBodyColour = RGB(255, 255, 255);
inline constexpr COLORREF kBarColour = RGB(236, 236, 228);
inline constexpr COLORREF kLineColour = RGB(0, 0, 0);

inline constexpr int kTextPixels = 11;  // Tahoma 8 point

// The shell's font for a locale: Tahoma, or for Chinese and Korean a face that has their characters where the
// desktop does not join them to Tahoma.  The caller deletes it.
HFONT CreateShellFont(LCID locale, int pixels, bool bold);

// Dialogs are written in the shell's font, whatever their templates name: gives it to all controls of a
// window.
void UseShellFont(HWND dialog, HFONT font);

void FillColour(HDC to, const RECT& area, COLORREF colour);

// Dialogs are white: what a dialog answers to a message of any kind, or for WM_CTLCOLORDLG and
// WM_CTLCOLORSTATIC, when that is the desktop's grey, the shell's paper.  `wParam`: the message's own.
LRESULT DialogColour(UINT message, WPARAM wParam, LRESULT answer);

// Fills a title strip and writes its text, shortened by an ellipsis to fit between the given margins.
void DrawTitle(HDC to, const RECT& strip, int left, int right, const wchar_t* text, HFONT font);

}  // namespace handheld
