// What a screen's two bars look like.
#include <cwchar>

#include "handheld/aygshell/menu_bar.h"
#include "handheld/aygshell/screen_window.h"
#include "handheld/coredll/look.h"

namespace handheld {
namespace {

constexpr RECT kStrip = {0, 0, kScreenWidth, kBarHeight};
constexpr int kTitleMargin = 6;
constexpr int kClockWidth = 46;
constexpr int kButtonLeft = 217;  // the round button's box in the title bar
constexpr int kButtonTop = 4;
constexpr int kButtonSize = 18;

void DrawRoundButton(HDC to, bool done, bool pressed, HFONT font) {
    const COLORREF paper = pressed ? kTitleTextColour : kTitleColour;
    const COLORREF ink = pressed ? kTitleColour : kTitleTextColour;
    HBRUSH brush = CreateSolidBrush(paper);
    HPEN rim = CreatePen(PS_SOLID, 1, kTitleTextColour);
    HGDIOBJ brushBefore = SelectObject(to, brush), penBefore = SelectObject(to, rim);
    Ellipse(to, kButtonLeft, kButtonTop, kButtonLeft + kButtonSize, kButtonTop + kButtonSize);
    if (done) {
        RECT area = {kButtonLeft, kButtonTop - 1, kButtonLeft + kButtonSize, kButtonTop + kButtonSize - 1};
        HGDIOBJ fontBefore = SelectObject(to, font);
        SetTextColor(to, ink);
        SetBkMode(to, TRANSPARENT);
        DrawTextW(to, L"ok", -1, &area, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
        SelectObject(to, fontBefore);
    } else {
        // Two strokes, each two pixels wide.
        constexpr int kFirst = 5, kLast = 12;
        for (int i = kFirst; i <= kLast; ++i)
            for (int wide = 0; wide < 2 && i + wide <= kLast; ++wide) {
                SetPixelV(to, kButtonLeft + i + wide, kButtonTop + i, ink);
                SetPixelV(to, kButtonLeft + kButtonSize - 1 - i - wide, kButtonTop + i, ink);
            }
    }
    SelectObject(to, brushBefore);
    SelectObject(to, penBefore);
    DeleteObject(brush);
    DeleteObject(rim);
}

}  // namespace

void CScreen::DrawFrame() const {
    if (!IsWindowVisible(m_window)) return;
    HDC window = GetWindowDC(m_window);
    HDC strip = CreateCompatibleDC(window);
    HBITMAP picture = CreateCompatibleBitmap(window, kScreenWidth, kBarHeight);
    HGDIOBJ before = SelectObject(strip, picture);
    DrawTitleBar(strip);
    BitBlt(window, 0, 0, kScreenWidth, kBarHeight, strip, 0, 0, SRCCOPY);
    DrawMenuBar(strip);
    BitBlt(window, 0, kScreenHeight - kBarHeight, kScreenWidth, kBarHeight, strip, 0, 0, SRCCOPY);
    SelectObject(strip, before);
    DeleteObject(picture);
    DeleteDC(strip);
    ReleaseDC(m_window, window);
}

void CScreen::DrawTitleBar(HDC to) const {
    wchar_t text[128], clock[8];
    InternalGetWindowText(m_window, text, ARRAYSIZE(text));
    SYSTEMTIME now;
    GetLocalTime(&now);
    _snwprintf(clock, ARRAYSIZE(clock), L"%02d:%02d", now.wHour, now.wMinute);

    handheld::DrawTitle(to, kStrip, kTitleMargin, kScreenWidth - kButtonLeft + kClockWidth, text,
                        m_titleFont);
    RECT area = {kButtonLeft - kClockWidth, 0, kButtonLeft - kTitleMargin, kBarHeight};
    HGDIOBJ before = SelectObject(to, m_smallFont);
    DrawTextW(to, clock, -1, &area, DT_SINGLELINE | DT_RIGHT | DT_VCENTER);
    SelectObject(to, before);
    DrawRoundButton(to, m_doneButton, m_pressed == Part::Button, m_smallFont);
}

void CScreen::DrawMenuBar(HDC to) const {
    FillColour(to, kStrip, kBarColour);
    FillColour(to, {0, 0, kScreenWidth, 1}, kLineColour);
    if (const CMenuBar* bar = m_bar ? CMenuBar::From(m_bar) : nullptr) bar->Draw(to, kStrip, m_pressedButton);
}

}  // namespace handheld
