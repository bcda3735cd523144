#include "handheld/aygshell/screen_window.h"

#include <algorithm>

#include "handheld/aygshell/menu_bar.h"
#include "handheld/coredll/look.h"

namespace handheld {
namespace {

constexpr UINT_PTR kClockTimer = 0x48485343;  // an id that no program picks
constexpr UINT kClockMs = 1000;
constexpr int kRoundButton = 26;  // width of the title bar's button, at the right end

constexpr DWORD kFrameStyles =
    WS_CAPTION | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_HSCROLL | WS_VSCROLL | WS_CHILD;
constexpr DWORD kFrameExStyles = WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE |
                                 WS_EX_STATICEDGE | WS_EX_TOOLWINDOW | WS_EX_CONTEXTHELP;

POINT PointOf(LPARAM position) {
    return {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
}

// Moves a screen's place up as far as what is attached below it needs and the desktop allows.
void LeaveRoomBelow(RECT& place, int height) {
    RECT desktop;
    if (!SystemParametersInfoW(SPI_GETWORKAREA, 0, &desktop, 0)) return;
    const LONG up = std::min(place.bottom + height - desktop.bottom, place.top - desktop.top);
    if (up > 0) OffsetRect(&place, 0, -up);
}

}  // namespace

void CScreen::Make(HWND window, bool doneButton) {
    if (CScreen* present = From(window)) {
        present->SetDoneButton(doneButton);
        return;
    }
    // Asked before the window is a screen itself.
    RECT place = ScreenRectangle(window);
    const bool keyPad = !FindScreen() && CKeyPad::IsWanted();
    if (keyPad) LeaveRoomBelow(place, kPadHeight);
    auto* const screen = new CScreen(window, doneButton);
    screen->Place();
    if (keyPad) screen->m_keyPad = std::make_unique<CKeyPad>(window);
    SetWindowPos(window, nullptr, place.left, place.top, kScreenWidth, kScreenHeight,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

CScreen::CScreen(HWND window, bool doneButton)
    : m_window(window),
      m_before(reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC))),
      m_doneButton(doneButton),
      m_titleFont(CreateShellFont(GetSystemDefaultLCID(), kTextPixels + 1, true)),
      m_smallFont(CreateShellFont(GetSystemDefaultLCID(), kTextPixels, false)) {
    SetPropW(window, kScreenProperty, this);
    UseShellFont(window, m_smallFont);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProcedure));
    // A timer with a function of its own never reaches the program's WM_TIMER.
    SetTimer(window, kClockTimer, kClockMs, OnClock);
}

CScreen::~CScreen() {
    KillTimer(m_window, kClockTimer);
    RemovePropW(m_window, kScreenProperty);
    SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_before));
    DeleteObject(m_titleFont);
    DeleteObject(m_smallFont);
}

// A frameless pop-up.  The system menu and the application style draw nothing here: they let the desktop's
// window manager and task bar treat the first screen as the program's main window.
void CScreen::Place() {
    const LONG_PTR style = GetWindowLongPtrW(m_window, GWL_STYLE);
    SetWindowLongPtrW(m_window, GWL_STYLE,
                      (style & ~LONG_PTR{kFrameStyles}) | WS_POPUP | WS_SYSMENU | WS_CLIPCHILDREN);
    LONG_PTR exStyle = GetWindowLongPtrW(m_window, GWL_EXSTYLE) & ~LONG_PTR{kFrameExStyles};
    if (!GetWindow(m_window, GW_OWNER)) exStyle |= WS_EX_APPWINDOW;
    SetWindowLongPtrW(m_window, GWL_EXSTYLE, exStyle);
}

void CScreen::SetDoneButton(bool doneButton) {
    m_doneButton = doneButton;
    DrawFrame();
}

void CScreen::SetBar(HWND bar) {
    m_bar = bar;
    DrawFrame();
}

void CScreen::RemoveBar(HWND bar) {
    if (m_bar == bar) SetBar(nullptr);
}

LRESULT CScreen::Default(UINT message, WPARAM wParam, LPARAM lParam) const {
    return DialogColour(message, wParam, CallWindowProcW(m_before, m_window, message, wParam, lParam));
}

LRESULT CALLBACK CScreen::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CScreen* screen = From(window);
    if (!screen) return DefWindowProcW(window, message, wParam, lParam);
    if (message != WM_NCDESTROY) return screen->OnMessage(message, wParam, lParam);
    const WNDPROC before = screen->m_before;
    delete screen;
    return CallWindowProcW(before, window, message, wParam, lParam);
}

LRESULT CScreen::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCALCSIZE: {
            RECT& area = *reinterpret_cast<RECT*>(lParam);  // also the first field of NCCALCSIZE_PARAMS
            area.top += kBarHeight;
            area.bottom -= kBarHeight;
            return 0;
        }
        case WM_WINDOWPOSCHANGING: {
            const LRESULT result = Default(message, wParam, lParam);
            auto& position = *reinterpret_cast<WINDOWPOS*>(lParam);
            position.cx = kScreenWidth;
            position.cy = kScreenHeight;
            return result;
        }
        case WM_WINDOWPOSCHANGED: {
            const LRESULT result = Default(message, wParam, lParam);
            if (!(reinterpret_cast<WINDOWPOS*>(lParam)->flags & SWP_NOMOVE)) OnMoved();
            if (m_keyPad) m_keyPad->Follow();
            return result;
        }
        case WM_NCPAINT:
            DrawFrame();
            return 0;
        case WM_NCACTIVATE:
            return TRUE;
        case WM_SETTEXT: {
            const LRESULT result = Default(message, wParam, lParam);
            DrawFrame();
            return result;
        }
        case WM_NCHITTEST:
            switch (PartAt(InWindow(PointOf(lParam)))) {
                case Part::Title:
                    return HTCAPTION;
                case Part::Button:
                    return HTCLOSE;
                case Part::Bar:
                    return HTMENU;
                case Part::None:
                    return HTCLIENT;
            }
            break;
        case WM_NCLBUTTONDOWN:
        case WM_NCLBUTTONDBLCLK: {
            const POINT point = InWindow(PointOf(lParam));
            const Part part = PartAt(point);
            if (part == Part::Title && message == WM_NCLBUTTONDOWN) return Default(message, wParam, lParam);
            OnPress(part, point);
            return 0;
        }
        case WM_NCRBUTTONDOWN:
        case WM_NCRBUTTONUP:
            return 0;
        case WM_MOUSEMOVE:
            if (m_pressed == Part::None) break;
            return 0;
        case WM_LBUTTONUP: {
            if (m_pressed == Part::None) break;
            POINT point = PointOf(lParam);
            ClientToScreen(m_window, &point);
            OnRelease(InWindow(point));
            return 0;
        }
        case WM_CAPTURECHANGED:
            m_pressed = Part::None;
            m_pressedButton = -1;
            DrawFrame();
            break;
        case WM_SYSCOMMAND:
            switch (wParam & 0xFFF0) {
                case SC_KEYMENU:
                    if (lParam == VK_SPACE) break;
                    OnMenuKey(static_cast<wchar_t>(lParam));
                    return 0;
                case SC_MAXIMIZE:
                case SC_SIZE:
                    return 0;
            }
            break;
    }
    return Default(message, wParam, lParam);
}

CScreen::Part CScreen::PartAt(POINT inWindow) const {
    if (inWindow.y >= kScreenHeight - kBarHeight) return Part::Bar;
    if (inWindow.y >= kBarHeight) return Part::None;
    return inWindow.x >= kScreenWidth - kRoundButton ? Part::Button : Part::Title;
}

POINT CScreen::InWindow(POINT onDesktop) const {
    RECT window;
    GetWindowRect(m_window, &window);
    return {onDesktop.x - window.left, onDesktop.y - window.top};
}

void CScreen::OnPress(Part part, POINT inWindow) {
    SetActiveWindow(m_window);
    CMenuBar* bar = m_bar ? CMenuBar::From(m_bar) : nullptr;
    const int button = part == Part::Bar && bar ? bar->ButtonAt(inWindow.x) : -1;
    if (part == Part::Bar && button < 0) return;
    if (button >= 0 && bar->HasPopup(button)) {
        bar->Open(button);
        return;
    }
    SetCapture(m_window);
    m_pressed = part;
    m_pressedButton = button;
    DrawFrame();
}

void CScreen::OnRelease(POINT inWindow) {
    const Part pressed = m_pressed;
    const int button = m_pressedButton;
    ReleaseCapture();
    if (PartAt(inWindow) != pressed) return;
    if (pressed == Part::Button) {
        if (m_doneButton)
            PostMessageW(m_window, WM_COMMAND, MAKEWPARAM(IDOK, 0), 0);
        else
            PostMessageW(m_window, WM_CLOSE, 0, 0);
    } else if (CMenuBar* bar = m_bar ? CMenuBar::From(m_bar) : nullptr) {
        if (bar->ButtonAt(inWindow.x) == button) bar->Command(button);
    }
}

void CScreen::OnMenuKey(wchar_t letter) {
    CMenuBar* bar = m_bar ? CMenuBar::From(m_bar) : nullptr;
    const int button = bar ? bar->ButtonFor(letter) : -1;
    if (button >= 0) bar->Open(button);
}

// The screens that lie below go along, so that they are found where the user left the topmost one.
void CScreen::OnMoved() const {
    RECT place;
    GetWindowRect(m_window, &place);
    HWND owner = GetWindow(m_window, GW_OWNER);
    if (owner && IsScreen(owner))
        SetWindowPos(owner, nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CALLBACK CScreen::OnClock(HWND window, UINT, UINT_PTR, DWORD) {
    CScreen* screen = From(window);
    SYSTEMTIME now;
    GetLocalTime(&now);
    if (!screen || screen->m_shownMinute == now.wMinute) return;
    screen->m_shownMinute = now.wMinute;
    screen->DrawFrame();
}

}  // namespace handheld
