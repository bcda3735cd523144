#include "handheld/commctrl/sheet_tabs.h"

#include <commctrl.h>

#include "handheld/coredll/look.h"

namespace handheld {
namespace {

constexpr wchar_t kTabsProperty[] = L"HandheldTabs";
constexpr UINT_PTR kTabControl = 0x3020;  // the id that the desktop's sheets give theirs
constexpr int kCaptionMargin = 6;
constexpr int kRoom = 9;  // above and below a caption together

}  // namespace

CSheetTabs::~CSheetTabs() {
    if (IsWindow(m_window)) DestroyWindow(m_window);
    DeleteObject(m_font);
}

void CSheetTabs::Create(HWND sheet) {
    INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TAB_CLASSES};
    InitCommonControlsEx(&classes);
    RECT client;
    GetClientRect(sheet, &client);
    m_font = CreateShellFont(GetSystemDefaultLCID(), kTextPixels, false);
    m_window = CreateWindowExW(
        0, WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | TCS_BOTTOM | TCS_FOCUSNEVER, 0, 0,
        0, 0, sheet, reinterpret_cast<HMENU>(kTabControl),
        reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(sheet, GWLP_HINSTANCE)), nullptr);
    SetPropW(m_window, kTabsProperty, this);
    m_before = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProcedure)));
    SendMessageW(m_window, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), FALSE);

    HDC screen = GetDC(m_window);
    HGDIOBJ before = SelectObject(screen, m_font);
    TEXTMETRICW metrics;
    GetTextMetricsW(screen, &metrics);
    SelectObject(screen, before);
    ReleaseDC(m_window, screen);
    m_height = metrics.tmHeight + kRoom;
    SendMessageW(m_window, TCM_SETPADDING, 0, MAKELPARAM(kCaptionMargin, kRoom / 2));
    SendMessageW(m_window, TCM_SETMINTABWIDTH, 0, 0);
    SetWindowPos(m_window, nullptr, 0, client.bottom - m_height, client.right, m_height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void CSheetTabs::Add(const std::wstring& title) {
    TCITEMW tab = {};
    tab.mask = TCIF_TEXT;
    tab.pszText = const_cast<wchar_t*>(title.c_str());
    SendMessageW(m_window, TCM_INSERTITEMW, SendMessageW(m_window, TCM_GETITEMCOUNT, 0, 0),
                 reinterpret_cast<LPARAM>(&tab));
}

void CSheetTabs::Select(size_t tab) const {
    SendMessageW(m_window, TCM_SETCURSEL, tab, 0);
}

size_t CSheetTabs::Selected() const {
    return SendMessageW(m_window, TCM_GETCURSEL, 0, 0);
}

// The chosen tab is one piece of paper with the page above it.
void CSheetTabs::OnPaint() const {
    PAINTSTRUCT paint;
    HDC to = BeginPaint(m_window, &paint);
    RECT client;
    GetClientRect(m_window, &client);
    FillColour(to, client, kBarColour);
    FillColour(to, {0, 0, client.right, 1}, kLineColour);
    HGDIOBJ before = SelectObject(to, m_font);
    const int count = static_cast<int>(SendMessageW(m_window, TCM_GETITEMCOUNT, 0, 0));
    for (int tab = 0; tab < count; ++tab) DrawTab(to, tab);
    SelectObject(to, before);
    EndPaint(m_window, &paint);
}

void CSheetTabs::DrawTab(HDC to, int tab) const {
    RECT place = {};
    SendMessageW(m_window, TCM_GETITEMRECT, tab, reinterpret_cast<LPARAM>(&place));
    const bool chosen = static_cast<size_t>(tab) == Selected();
    place.top = chosen ? 0 : 1;
    place.bottom = m_height - 1;
    if (chosen) {
        FillColour(to, {place.left - 1, 0, place.right + 1, place.bottom + 1}, kLineColour);
        FillColour(to, place, kBodyColour);
    } else {
        FillColour(to, {place.right, 4, place.right + 1, place.bottom - 2}, kLineColour);
    }
    wchar_t text[64] = L"";
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = ARRAYSIZE(text);
    SendMessageW(m_window, TCM_GETITEMW, tab, reinterpret_cast<LPARAM>(&item));
    SetBkMode(to, TRANSPARENT);
    SetTextColor(to, kLineColour);
    DrawTextW(to, text, -1, &place, DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
}

LRESULT CALLBACK CSheetTabs::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* tabs = static_cast<CSheetTabs*>(GetPropW(window, kTabsProperty));
    if (!tabs) return DefWindowProcW(window, message, wParam, lParam);
    const WNDPROC before = tabs->m_before;
    switch (message) {
        case WM_PAINT:
            tabs->OnPaint();
            return 0;
        case WM_ERASEBKGND:
            return TRUE;
        case WM_NCDESTROY:
            RemovePropW(window, kTabsProperty);
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(before));
            break;
    }
    return CallWindowProcW(before, window, message, wParam, lParam);
}

}  // namespace handheld
