#include "handheld/aygshell/menu_bar.h"

#include <cwctype>
#include <optional>

#include "handheld/aygshell/menu_template.h"
#include "handheld/aygshell/screen_window.h"
#include "handheld/coredll/look.h"

namespace handheld {
namespace {

constexpr wchar_t kClassName[] = L"menu_worker";
constexpr int kFirstButton = 4;
constexpr int kCaptionMargin = 6;

thread_local CMenuBar* openBar;  // whose pop-up this thread follows

std::wstring LoadText(HINSTANCE resources, UINT id) {
    const wchar_t* text = nullptr;
    const int length = LoadStringW(resources, id, reinterpret_cast<LPWSTR>(&text), 0);
    return std::wstring(text, text + length);
}

int CaptionWidth(HFONT font, const std::wstring& caption) {
    HDC screen = GetDC(nullptr);
    HGDIOBJ before = SelectObject(screen, font);
    RECT area = {};
    DrawTextW(screen, caption.c_str(), -1, &area, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    return area.right;
}

void RegisterBarClass(HINSTANCE module, WNDPROC procedure) {
    WNDCLASSW description = {};
    if (GetClassInfoW(module, kClassName, &description)) return;
    description.lpfnWndProc = procedure;
    description.hInstance = module;
    description.lpszClassName = kClassName;
    RegisterClassW(&description);
}

std::optional<MenuTemplate> LoadTemplate(const SHMENUBARINFO& info) {
    HRSRC resource = FindResourceW(info.hInstRes, MAKEINTRESOURCEW(info.nToolBarId), RT_RCDATA);
    HGLOBAL loaded = resource ? LoadResource(info.hInstRes, resource) : nullptr;
    if (!loaded) return std::nullopt;
    return ReadMenuTemplate(LockResource(loaded), SizeofResource(info.hInstRes, resource));
}

}  // namespace

HWND CMenuBar::Create(const SHMENUBARINFO& info) {
    const auto buttons = LoadTemplate(info);
    HMENU menu = buttons ? LoadMenuW(info.hInstRes, MAKEINTRESOURCEW(buttons->menu)) : nullptr;
    if (!menu) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    auto* bar = new CMenuBar(info.hwndParent, menu);
    if (!bar->AddButtons(*buttons, info.hInstRes)) {
        delete bar;
        SetLastError(ERROR_INVALID_DATA);
        return nullptr;
    }
    const auto module = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(info.hwndParent, GWLP_HINSTANCE));
    RegisterBarClass(module, WindowProcedure);
    HWND window = CreateWindowExW(0, kClassName, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, info.hwndParent,
                                  nullptr, module, bar);
    if (!window) delete bar;
    return window;
}

CMenuBar* CMenuBar::From(HWND bar) {
    return reinterpret_cast<CMenuBar*>(GetWindowLongPtrW(bar, GWLP_USERDATA));
}

CMenuBar::~CMenuBar() {
    if (openBar == this) {
        openBar = nullptr;
        // The menu's loop outlives its owner; the message wakes it to see that it has been ended.
        EndMenu();
        PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
    }
    DestroyMenu(m_menu);
    DeleteObject(m_font);
}

bool CMenuBar::AddButtons(const MenuTemplate& buttons, HINSTANCE resources) {
    m_font = CreateShellFont(GetSystemDefaultLCID(), kTextPixels, false);
    int left = kFirstButton;
    for (const MenuButtonTemplate& button : buttons.buttons) {
        HMENU popup = button.popup == kNoPopup ? nullptr : GetSubMenu(m_menu, button.popup);
        if (!popup && button.popup != kNoPopup) return false;
        Button added = {button.command,
                        (button.state & TBSTATE_ENABLED) != 0,
                        (button.state & TBSTATE_HIDDEN) == 0,
                        LoadText(resources, button.caption),
                        popup,
                        left,
                        left};
        if (added.visible) added.right += CaptionWidth(m_font, added.caption) + 2 * kCaptionMargin;
        left = added.right;
        m_buttons.push_back(std::move(added));
    }
    return true;
}

void CMenuBar::Draw(HDC to, const RECT& strip, int pressed) const {
    if (!(GetWindowLongW(m_window, GWL_STYLE) & WS_VISIBLE)) return;
    HGDIOBJ before = SelectObject(to, m_font);
    for (int i = 0; i < static_cast<int>(m_buttons.size()); ++i) {
        const Button& button = m_buttons[i];
        if (!button.visible) continue;
        RECT area = {strip.left + button.left, strip.top + 1, strip.left + button.right, strip.bottom};
        const bool chosen = i == m_open || i == pressed;
        if (chosen) FillColour(to, area, kTitleColour);
        SetBkMode(to, TRANSPARENT);
        const bool usable = button.enabled && IsWindowEnabled(m_window);
        SetTextColor(to, chosen ? kTitleTextColour : usable ? kLineColour : GetSysColor(COLOR_GRAYTEXT));
        DrawTextW(to, button.caption.c_str(), -1, &area,
                  DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_HIDEPREFIX);
    }
    SelectObject(to, before);
}

int CMenuBar::ButtonAt(int x) const {
    if (!IsWindowEnabled(m_window) || !(GetWindowLongW(m_window, GWL_STYLE) & WS_VISIBLE)) return -1;
    for (int i = 0; i < static_cast<int>(m_buttons.size()); ++i)
        if (m_buttons[i].enabled && x >= m_buttons[i].left && x < m_buttons[i].right) return i;
    return -1;
}

int CMenuBar::ButtonFor(wchar_t letter) const {
    for (int i = 0; i < static_cast<int>(m_buttons.size()); ++i) {
        const Button& button = m_buttons[i];
        if (!button.popup || ButtonAt(button.left) != i) continue;
        const size_t mark = button.caption.find(L'&');
        if (!letter || (mark + 1 < button.caption.size() && mark != std::wstring::npos &&
                        std::towupper(button.caption[mark + 1]) == std::towupper(letter)))
            return i;
    }
    return -1;
}

void CMenuBar::Open(int button) {
    HWND window = m_window, parent = m_parent;
    SetForegroundWindow(parent);
    openBar = this;
    HHOOK hook = SetWindowsHookExW(WH_MSGFILTER, OnMenuFilter, nullptr, GetCurrentThreadId());
    for (int next = button; next >= 0;) {
        m_open = next;
        m_next = -1;
        Redraw();
        RECT screen;
        GetWindowRect(parent, &screen);
        TrackPopupMenuEx(m_buttons[next].popup, TPM_LEFTALIGN | TPM_BOTTOMALIGN,
                         screen.left + m_buttons[next].left, screen.bottom - kBarHeight, parent, nullptr);
        // The menu's own loop delivers messages: the parent may have closed meanwhile, and taken the bar
        // along.
        if (!openBar || !IsWindow(window)) {
            UnhookWindowsHookEx(hook);
            return;
        }
        next = m_next;
    }
    UnhookWindowsHookEx(hook);
    openBar = nullptr;
    m_open = -1;
    Redraw();
}

void CMenuBar::Command(int button) const {
    PostMessageW(m_parent, WM_COMMAND, MAKEWPARAM(m_buttons[button].command, 0), 0);
}

LRESULT CALLBACK CMenuBar::OnMenuFilter(int code, WPARAM wParam, LPARAM lParam) {
    if (code == MSGF_MENU && openBar && openBar->OnMenuMessage(*reinterpret_cast<MSG*>(lParam))) return TRUE;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// While a pop-up is open: the arrow keys and the pointer go over to the other buttons, and a second click on
// the open one closes it.
bool CMenuBar::OnMenuMessage(const MSG& message) {
    switch (message.message) {
        case WM_KEYDOWN:
            if (message.wParam == VK_LEFT) return Switch(Neighbour(m_open, -1));
            if (message.wParam == VK_RIGHT) return Switch(Neighbour(m_open, 1));
            return false;
        case WM_MOUSEMOVE:
        case WM_NCMOUSEMOVE:
            return Switch(ButtonUnder(message.pt));
        case WM_LBUTTONDOWN:
        case WM_NCLBUTTONDOWN:
            if (ButtonUnder(message.pt) != m_open) return false;
            EndMenu();
            return true;
        default:
            return false;
    }
}

bool CMenuBar::Switch(int button) {
    if (button < 0 || button == m_open || !HasPopup(button)) return false;
    m_next = button;
    EndMenu();
    return true;
}

// The next button with a pop-up, round the ends.
int CMenuBar::Neighbour(int button, int step) const {
    const int count = static_cast<int>(m_buttons.size());
    int other = button;
    do other = (other + step + count) % count;
    while (other != button && (!m_buttons[other].popup || ButtonAt(m_buttons[other].left) != other));
    return other;
}

int CMenuBar::ButtonUnder(POINT point) const {
    RECT screen;
    GetWindowRect(m_parent, &screen);
    const bool inBar = point.y >= screen.bottom - kBarHeight && point.y < screen.bottom;
    return inBar ? ButtonAt(point.x - screen.left) : -1;
}

void CMenuBar::Redraw() const {
    if (CScreen* screen = CScreen::From(m_parent)) screen->DrawFrame();
}

LRESULT CMenuBar::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case SHCMBM_GETMENU:
            return reinterpret_cast<LRESULT>(m_menu);
        case SHCMBM_GETSUBMENU:
            for (const Button& button : m_buttons)
                if (button.command == static_cast<UINT>(lParam))
                    return reinterpret_cast<LRESULT>(button.popup);
            return 0;
        case WM_STYLECHANGED:
        case WM_SHOWWINDOW:
        case WM_WINDOWPOSCHANGED:
        case WM_ENABLE:
            Redraw();
            break;
    }
    return DefWindowProcW(m_window, message, wParam, lParam);
}

LRESULT CALLBACK CMenuBar::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* bar = static_cast<CMenuBar*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        bar->m_window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(bar));
    }
    CMenuBar* bar = From(window);
    if (!bar) return DefWindowProcW(window, message, wParam, lParam);
    if (message != WM_NCDESTROY) return bar->OnMessage(message, wParam, lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    if (CScreen* screen = CScreen::From(bar->m_parent)) screen->RemoveBar(window);
    delete bar;
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace handheld
