#include "handheld/keypad/key_pad.h"

#include "handheld/common/settings.h"
#include "handheld/keypad/card_slot.h"
#include "handheld/keypad/resource.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;  // of this library

namespace handheld {
namespace {

constexpr UINT kMsgFollow = WM_APP;
constexpr UINT_PTR kCardTimer = 1;
constexpr UINT kCardMs = 200;  // how often the slot is looked at: the card's control file moves the card too

constexpr LPARAM kFirstPress = 1;
constexpr LPARAM kReleased = 0xC0000001;

// The three pictures in the bitmap, one below the other.
constexpr int kRest = 0, kPressed = kPadHeight, kCardOut = 2 * kPadHeight;

void CopyPart(HDC to, HDC pictures, int picture, const RECT& area) {
    BitBlt(to, area.left, area.top, area.right - area.left, area.bottom - area.top, pictures, area.left,
           picture + area.top, SRCCOPY);
}

}  // namespace

bool CKeyPad::IsWanted() {
    return TextSetting(L"HANDHELD_KEYPAD") != L"off";
}

CKeyPad::CKeyPad(HWND screen) : m_screen(screen), m_stop(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    m_thread = CreateThread(nullptr, 0, Run, this, 0, nullptr);
}

CKeyPad::~CKeyPad() {
    SetEvent(m_stop);
    if (m_thread) {
        WaitForSingleObject(m_thread, INFINITE);
        CloseHandle(m_thread);
    }
    CloseHandle(m_stop);
}

void CKeyPad::Follow() const {
    if (HWND window = m_window) PostMessageW(window, kMsgFollow, 0, 0);
}

DWORD WINAPI CKeyPad::Run(void* parameter) {
    auto& pad = *static_cast<CKeyPad*>(parameter);
    if (pad.Create()) pad.TakeMessages();
    if (HWND window = pad.m_window) DestroyWindow(window);
    DeleteObject(pad.m_picture);
    return 0;
}

void CKeyPad::TakeMessages() const {
    while (MsgWaitForMultipleObjects(1, &m_stop, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
}

bool CKeyPad::Create() {
    const auto module = reinterpret_cast<HINSTANCE>(&__ImageBase);
    m_picture = static_cast<HBITMAP>(
        LoadImageW(module, MAKEINTRESOURCEW(IDB_KEY_PAD), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    WNDCLASSW description = {};
    description.lpfnWndProc = WindowProcedure;
    description.hInstance = module;
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = kPadClass;
    RegisterClassW(&description);  // fails from the second pad on, which finds the first one's
    // The system menu has the desktop's window manager look after the window, as after the screen.
    HWND window =
        CreateWindowExW(WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW, kPadClass, L"Keys", WS_POPUP | WS_SYSMENU, 0, 0,
                        kPadWidth, kPadHeight, m_screen, nullptr, module, this);
    if (!window) return false;
    SetTimer(window, kCardTimer, kCardMs, nullptr);
    m_window = window;
    Place();
    return true;
}

LRESULT CALLBACK CKeyPad::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* const pad = static_cast<CKeyPad*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pad));
        pad->m_window = window;
    }
    auto* const pad = reinterpret_cast<CKeyPad*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return pad ? pad->OnMessage(message, wParam, lParam) : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CKeyPad::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case kMsgFollow:
            Place();
            return 0;
        case WM_MOUSEACTIVATE:
            return MA_NOACTIVATE;
        case WM_LBUTTONDOWN:
            OnPress({static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
            return 0;
        case WM_LBUTTONUP:
            ReleaseCapture();
            Release();
            return 0;
        case WM_CAPTURECHANGED:
            Release();
            return 0;
        case WM_TIMER:
            ShowCard();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint();
            return 0;
        case WM_CLOSE:  // only together with the screen
            return 0;
    }
    const HWND window = m_window;
    if (message == WM_NCDESTROY) m_window = nullptr;
    return DefWindowProcW(window, message, wParam, lParam);
}

void CKeyPad::Place() const {
    const bool visible = IsWindowVisible(m_screen) && !IsIconic(m_screen);
    RECT screen;
    if (!visible || !GetWindowRect(m_screen, &screen)) {
        ShowWindow(m_window, SW_HIDE);
        return;
    }
    SetWindowPos(m_window, nullptr, screen.left, screen.bottom, kPadWidth, kPadHeight,
                 SWP_NOACTIVATE | SWP_NOZORDER | SWP_SHOWWINDOW);
}

void CKeyPad::Paint() const {
    PAINTSTRUCT paint;
    HDC to = BeginPaint(m_window, &paint);
    HDC pictures = CreateCompatibleDC(to);
    HGDIOBJ before = SelectObject(pictures, m_picture);
    CopyPart(to, pictures, kRest, {0, 0, kPadWidth, kPadHeight});
    if (m_pressed) CopyPart(to, pictures, kPressed, AreaOf(*m_pressed));
    if (!m_cardIn) CopyPart(to, pictures, kCardOut, kCardArea);
    SelectObject(pictures, before);
    DeleteDC(pictures);
    EndPaint(m_window, &paint);
}

void CKeyPad::OnPress(POINT place) {
    if (PtInRect(&kCardArea, place)) {
        MoveCard(!IsCardIn());
        ShowCard();
        return;
    }
    Release();
    m_pressed = PadKeyAt(place);
    if (!m_pressed) return;
    SetCapture(m_window);
    InvalidateRect(m_window, nullptr, FALSE);
    SendKey(WM_KEYDOWN, kFirstPress);
}

void CKeyPad::Release() {
    if (!m_pressed) return;
    SendKey(WM_KEYUP, kReleased);
    m_pressed = nullptr;
    InvalidateRect(m_window, nullptr, FALSE);
}

void CKeyPad::ShowCard() {
    const bool in = IsCardIn();
    if (in == m_cardIn) return;
    m_cardIn = in;
    InvalidateRect(m_window, &kCardArea, FALSE);
}

void CKeyPad::SendKey(UINT message, LPARAM state) const {
    PostMessageW(KeyTarget(), message, m_pressed->key, state);
}

// Where the keyboard's keys go: the focus of the screen's thread, or, while another program has the keyboard,
// the topmost window of this one.
HWND CKeyPad::KeyTarget() const {
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(m_screen, nullptr);
    return GetGUIThreadInfo(thread, &info) && info.hwndFocus ? info.hwndFocus : GetLastActivePopup(m_screen);
}

}  // namespace handheld
