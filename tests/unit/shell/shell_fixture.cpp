#include "shell_fixture.h"

#include <algorithm>
#include <thread>

TestDialog::TestDialog(HWND owner) {
    struct {
        DLGTEMPLATE head;
        WORD menu, windowClass;
        wchar_t title[8];
    } description = {{}, 0, 0, L"Camera"};
    description.head.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | DS_MODALFRAME;
    description.head.cx = 60;
    description.head.cy = 40;
    m_window = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &description.head, owner, Procedure,
                                          reinterpret_cast<LPARAM>(this));
    EXPECT_TRUE(m_window);
}

TestDialog::~TestDialog() {
    if (IsWindow(m_window)) DestroyWindow(m_window);
}

INT_PTR CALLBACK TestDialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, lParam);
    auto* self = reinterpret_cast<TestDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (self) self->m_notes.push_back({message, wParam});
    if (message == kMsgDestroy) DestroyWindow(window);
    return message == WM_CLOSE || message == WM_COMMAND;
}

void TestDialog::Fill(DWORD flags) {
    SHINITDLGINFO info = {SHIDIM_FLAGS, m_window, flags};
    EXPECT_TRUE(SHInitDialog(&info));
    ShowWindow(m_window, SW_SHOW);
    UpdateWindow(m_window);
    Pump();
    m_notes.clear();
}

HWND TestDialog::AddBar(UINT resource) {
    SHMENUBARINFO info = {};
    info.cbSize = sizeof info;
    info.hwndParent = m_window;
    info.nToolBarId = resource;
    info.hInstRes = GetModuleHandleW(nullptr);
    return SHCreateMenuBar(&info) ? info.hwndMB : nullptr;
}

RECT TestDialog::Place() const {
    RECT place = {};
    GetWindowRect(m_window, &place);
    return place;
}

void TestDialog::Tap(int x, int y) {
    const RECT place = Place();
    const LPARAM at = MAKELPARAM(place.left + x, place.top + y);
    const LRESULT part = SendMessageW(m_window, WM_NCHITTEST, 0, at);
    SendMessageW(m_window, WM_NCLBUTTONDOWN, static_cast<WPARAM>(part), at);
    if (!IsWindow(m_window)) return;
    POINT client = {place.left + x, place.top + y};
    ScreenToClient(m_window, &client);
    SendMessageW(m_window, WM_LBUTTONUP, 0, MAKELPARAM(client.x, client.y));
    Pump();
}

COLORREF TestDialog::Pixel(int x, int y) const {
    HDC window = GetWindowDC(m_window);
    const COLORREF colour = GetPixel(window, x, y);
    ReleaseDC(m_window, window);
    return colour;
}

void TestDialog::Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (IsWindow(m_window) && IsDialogMessageW(m_window, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool TestDialog::Got(UINT message) const {
    return std::any_of(m_notes.begin(), m_notes.end(), [&](const Note& n) { return n.message == message; });
}

bool TestDialog::GotCommand(int id) const {
    return std::any_of(m_notes.begin(), m_notes.end(),
                       [&](const Note& n) { return n.message == WM_COMMAND && LOWORD(n.wParam) == id; });
}

HWND WaitForPopup(HWND other) {
    for (DWORD start = GetTickCount(); GetTickCount() - start < 2000; Sleep(5)) {
        HWND popup = FindWindowW(L"#32768", nullptr);
        if (popup && popup != other && IsWindowVisible(popup)) return popup;
    }
    return nullptr;
}

void WithPopup(const std::function<void()>& open, const std::function<void(HWND)>& use) {
    std::thread user([&] {
        HWND popup = WaitForPopup();
        EXPECT_TRUE(popup);
        if (popup) use(popup);
    });
    open();
    user.join();
}
