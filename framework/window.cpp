#include "framework/window.h"

#include "framework/program_module.h"

CWindow* CWindow::s_first = nullptr;

CWindow::~CWindow() {
    const HWND hwnd = m_hwnd;
    if (!hwnd) return;
    Detach();
    DestroyWindow(hwnd);
}

bool CWindow::Create(const wchar_t* className, const wchar_t* title, DWORD style, DWORD extendedStyle,
                     const RECT& bounds, HWND parent, UINT id) {
    if (m_hwnd) return false;
    const HWND created =
        CreateWindowExW(extendedStyle, className, title, style, bounds.left, bounds.top,
                        bounds.right - bounds.left, bounds.bottom - bounds.top, parent,
                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), ProgramModule(), this);
    if (!created && m_hwnd) Detach();  // refused by its own WM_CREATE handler: no WM_DESTROY need come
    return created != nullptr;
}

int CWindow::ShowMessage(const wchar_t* text, const wchar_t* caption, UINT style) const {
    // Without a caption the system would write "Error" in its own language.
    return MessageBoxW(m_hwnd, text ? text : L"", caption ? caption : L"", style);
}

CWindow* CWindow::Of(HWND hwnd) {
    CWindow* window = s_first;
    while (window && window->m_hwnd != hwnd) window = window->m_next;
    return window;
}

Reply CWindow::OnMessage(const Message&) {
    return {};
}

Then CWindow::OnCommand(UINT, UINT, HWND) {
    return Then::defaultHandling;
}

bool CWindow::PreTranslateMessage(MSG&) {
    return false;
}

void CWindow::Attach(HWND hwnd) {
    m_hwnd = hwnd;
    m_next = s_first;
    s_first = this;
}

void CWindow::Detach() {
    CWindow** link = &s_first;
    while (*link != this) link = &(*link)->m_next;
    *link = m_next;
    m_hwnd = nullptr;
}

Reply CWindow::Route(HWND hwnd, const Message& message) {
    CWindow* window = Of(hwnd);
    if (!window) return {};
    if (message.message == WM_COMMAND) {
        const HWND control = reinterpret_cast<HWND>(message.lParam);
        const UINT code = control ? HIWORD(message.wParam) : 0;
        if (window->OnCommand(LOWORD(message.wParam), code, control) == Then::done) return 0;
    }
    const Reply reply = window->OnMessage(message);
    if (message.message == WM_DESTROY && (window = Of(hwnd))) {
        window->Detach();
        window->OnWindowGone();
    }
    return reply;
}

LRESULT CALLBACK CWindow::WindowProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE) {
        static_cast<CWindow*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams)->Attach(hwnd);
    }
    const Reply reply = Route(hwnd, {message, wParam, lParam});
    return reply ? *reply : DefWindowProcW(hwnd, message, wParam, lParam);
}

bool RegisterWindowClass(const wchar_t* name, UINT style, HBRUSH background) {
    WNDCLASSW windowClass = {};
    if (GetClassInfoW(ProgramModule(), name, &windowClass)) return true;
    windowClass = {};
    windowClass.style = style;
    windowClass.lpfnWndProc = &CWindow::WindowProcedure;
    windowClass.hInstance = ProgramModule();
    windowClass.hbrBackground = background;
    windowClass.lpszClassName = name;
    return RegisterClassW(&windowClass) != 0;
}
