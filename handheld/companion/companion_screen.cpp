#include "handheld/companion/companion_screen.h"

#include <windowsx.h>

#include "handheld/companion/locale.h"
#include "handheld/coredll/look.h"
#include "handheld/coredll/screen.h"

namespace handheld {
namespace {

constexpr RECT kWindow = {0, 0, kScreenWidth, kScreenHeight};
constexpr RECT kTitleBar = {0, 0, kScreenWidth, kTitleHeight};
constexpr RECT kToolBar = {0, kBody.bottom, kScreenWidth, kScreenHeight};
constexpr RECT kCloseBox = {kScreenWidth - kTitleHeight, 0, kScreenWidth, kTitleHeight};
constexpr int kTitleMargin = 6;
constexpr COLORREF kInk = RGB(24, 24, 96);
constexpr COLORREF kGreyInk = RGB(176, 176, 172);
constexpr COLORREF kPressedColour = RGB(196, 204, 228);
constexpr UINT_PTR kTickTimer = 1;
constexpr int kProgramIcon = 1;

RECT ButtonBox(size_t place, size_t count) {
    const auto left = [&](size_t i) { return static_cast<LONG>(kScreenWidth * i / count); };
    return {left(place), kToolBar.top + 1, left(place + 1), kToolBar.bottom};
}

void DrawCentredIcon(HDC to, Icon icon, const RECT& box, COLORREF colour) {
    DrawIcon(to, icon, (box.left + box.right - kIconSize) / 2, (box.top + box.bottom - kIconSize) / 2,
             colour);
}

POINT InBody(POINT at) {
    return {at.x - kBody.left, at.y - kBody.top};
}

}  // namespace

CCompanionScreen::CCompanionScreen()
    : m_locale(HandheldLocale()),
      m_textFont(CreateShellFont(m_locale, kTextPixels, false)),
      m_boldFont(CreateShellFont(m_locale, kTextPixels + 1, true)) {}

CCompanionScreen::~CCompanionScreen() {
    DeleteObject(m_textFont);
    DeleteObject(m_boldFont);
}

int CCompanionScreen::Run(HINSTANCE module, const wchar_t* className) {
    WNDCLASSW kind = {};
    kind.style = CS_DBLCLKS;
    kind.lpfnWndProc = Procedure;
    kind.hInstance = module;
    kind.hIcon = LoadIconW(module, MAKEINTRESOURCEW(kProgramIcon));
    kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    kind.lpszClassName = className;
    if (!RegisterClassW(&kind)) return 1;
    const RECT place = ScreenRectangle(nullptr);
    CreateWindowExW(WS_EX_APPWINDOW, className, L"", WS_POPUP | WS_SYSMENU | WS_CLIPCHILDREN, place.left,
                    place.top, kScreenWidth, kScreenHeight, nullptr, nullptr, module, this);
    if (!m_window) return 1;
    OnCreated();
    Refresh();
    ShowWindow(m_window, SW_SHOW);
    SetForegroundWindow(m_window);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}

void CCompanionScreen::Refresh() {
    SetWindowTextW(m_window, Title().c_str());
    InvalidateRect(m_window, nullptr, FALSE);
}

void CCompanionScreen::SetTick(UINT interval) {
    if (interval)
        SetTimer(m_window, kTickTimer, interval, nullptr);
    else
        KillTimer(m_window, kTickTimer);
}

void CCompanionScreen::Close() {
    DestroyWindow(m_window);
}

LRESULT CALLBACK CCompanionScreen::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* screen =
            static_cast<CCompanionScreen*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        screen->m_window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(screen));
    }
    auto* screen = reinterpret_cast<CCompanionScreen*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return screen ? screen->OnMessage(message, wParam, lParam)
                  : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CCompanionScreen::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT at = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint();
            return 0;
        case WM_NCHITTEST: {
            POINT inWindow = at;
            ScreenToClient(m_window, &inWindow);
            // The title bar moves the window, its button does not.
            return PtInRect(&kTitleBar, inWindow) && !PtInRect(&kCloseBox, inWindow) ? HTCAPTION : HTCLIENT;
        }
        case WM_NCLBUTTONDBLCLK:
            return 0;
        case WM_LBUTTONDBLCLK:
            if (PtInRect(&kBody, at)) {
                OnBodyDoubleClick(InBody(at));
                return 0;
            }
            OnDown(at);
            return 0;
        case WM_LBUTTONDOWN:
            OnDown(at);
            return 0;
        case WM_MOUSEMOVE:
            if (m_pressed == kBodyPart) {
                const POINT from = m_last;
                m_last = InBody(at);
                OnBodyDrag(from, m_last);
            } else if (m_pressed != kNothing && m_overPressed != (ButtonAt(at) == m_pressed)) {
                m_overPressed = !m_overPressed;
                Refresh();
            }
            return 0;
        case WM_LBUTTONUP:
            OnUp(at);
            return 0;
        case WM_CAPTURECHANGED:
            m_pressed = kNothing;
            Refresh();
            return 0;
        case WM_SETCURSOR: {
            POINT inWindow;
            GetCursorPos(&inWindow);
            ScreenToClient(m_window, &inWindow);
            if (LOWORD(lParam) == HTCLIENT && PtInRect(&kBody, inWindow) && OnBodyCursor(InBody(inWindow)))
                return TRUE;
            break;
        }
        case WM_MOUSEWHEEL:
            OnWheelMessage(wParam);
            return 0;
        case WM_VSCROLL:
            OnScroll(LOWORD(wParam), HIWORD(wParam));
            return 0;
        case WM_KEYDOWN:
            OnKey(wParam);
            return 0;
        case WM_TIMER:
            OnTick();
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
    }
    return DefWindowProcW(m_window, message, wParam, lParam);
}

void CCompanionScreen::Paint() {
    PAINTSTRUCT paint;
    HDC window = BeginPaint(m_window, &paint);
    HDC canvas = CreateCompatibleDC(window);
    HBITMAP picture = CreateCompatibleBitmap(window, kScreenWidth, kScreenHeight);
    HGDIOBJ before = SelectObject(canvas, picture);

    const int untouched = SaveDC(canvas);
    IntersectClipRect(canvas, kBody.left, kBody.top, kBody.right, kBody.bottom);
    SetViewportOrgEx(canvas, kBody.left, kBody.top, nullptr);
    PaintBody(canvas);
    RestoreDC(canvas, untouched);
    PaintTitle(canvas);
    PaintTools(canvas);
    BitBlt(window, 0, 0, kScreenWidth, kScreenHeight, canvas, 0, 0, SRCCOPY);

    SelectObject(canvas, before);
    DeleteObject(picture);
    DeleteDC(canvas);
    EndPaint(m_window, &paint);
}

void CCompanionScreen::PaintTitle(HDC to) const {
    const std::wstring note = TitleNote();
    HGDIOBJ before = SelectObject(to, m_textFont);
    RECT noteBox = {0, 0, 0, 0};
    if (!note.empty()) DrawTextW(to, note.c_str(), -1, &noteBox, DT_SINGLELINE | DT_CALCRECT | DT_NOPREFIX);
    const int noteRight = kCloseBox.left - kTitleMargin;
    noteBox = {noteRight - noteBox.right, 0, noteRight, kTitleHeight};

    DrawTitle(to, kTitleBar, kTitleMargin, kScreenWidth - noteBox.left + kTitleMargin, Title().c_str(),
              m_boldFont);
    DrawTextW(to, note.c_str(), -1, &noteBox, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    SelectObject(to, before);
    const bool pressed = m_pressed == kCloseButton && m_overPressed;
    if (pressed) FillColour(to, kCloseBox, kPressedColour);
    DrawCentredIcon(to, Icon::close, kCloseBox, pressed ? kInk : kTitleTextColour);
}

void CCompanionScreen::PaintTools(HDC to) const {
    FillColour(to, kToolBar, kBarColour);
    FillColour(to, {kToolBar.left, kToolBar.top, kToolBar.right, kToolBar.top + 1}, kLineColour);
    const std::vector<ToolButton> buttons = Buttons();
    for (size_t i = 0; i < buttons.size(); ++i) {
        const RECT box = ButtonBox(i, buttons.size());
        if (buttons[i].id == m_pressed && m_overPressed) FillColour(to, box, kPressedColour);
        DrawCentredIcon(to, buttons[i].icon, box, buttons[i].enabled ? kInk : kGreyInk);
    }
}

int CCompanionScreen::ButtonAt(POINT at) const {
    if (PtInRect(&kCloseBox, at)) return kCloseButton;
    const std::vector<ToolButton> buttons = Buttons();
    for (size_t i = 0; i < buttons.size(); ++i) {
        const RECT box = ButtonBox(i, buttons.size());
        if (PtInRect(&box, at)) return buttons[i].enabled ? buttons[i].id : kNothing;
    }
    return kNothing;
}

void CCompanionScreen::OnDown(POINT at) {
    m_pressed = PtInRect(&kBody, at) ? kBodyPart : ButtonAt(at);
    if (m_pressed == kNothing) return;
    m_overPressed = true;
    SetCapture(m_window);
    if (m_pressed == kBodyPart) {
        m_last = InBody(at);
        OnBodyDown(m_last);
    }
    Refresh();
}

void CCompanionScreen::OnUp(POINT at) {
    const int pressed = m_pressed;
    if (pressed == kNothing) return;
    ReleaseCapture();
    if (pressed == kBodyPart || ButtonAt(at) != pressed) return;
    if (pressed == kCloseButton)
        Close();
    else
        OnButton(pressed);
}

void CCompanionScreen::OnWheelMessage(WPARAM wParam) {
    m_wheel += GET_WHEEL_DELTA_WPARAM(wParam);
    const int steps = m_wheel / WHEEL_DELTA;
    m_wheel -= steps * WHEEL_DELTA;
    if (steps) OnWheel(steps);
}

}  // namespace handheld
