#include "handheld/commctrl/sheet_window.h"

#include <algorithm>

#include "handheld/coredll/look.h"
#include "platform/ce.h"

namespace handheld {
namespace {

HINSTANCE OwnModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&OwnModule), &module);
    return module;
}

}  // namespace

CSheet::~CSheet() {
    if (m_window) DestroyWindow(m_window);
}

INT_PTR CSheet::Run(HWND owner) {
    owner = owner ? GetAncestor(owner, GA_ROOT) : nullptr;
    const bool disabled = owner && !EnableWindow(owner, FALSE);
    m_result = -1;
    if (Create(owner)) {
        m_result = 0;
        Loop();
    }
    // Before the sheet goes: otherwise the system would activate another program's window.
    if (disabled) EnableWindow(owner, TRUE);
    if (m_window) DestroyWindow(m_window);
    return m_result;
}

bool CSheet::Create(HWND owner) {
    struct {
        DLGTEMPLATE head;
        WORD menu, windowClass, title;
    } dialog = {};
    dialog.head.style = WS_POPUP | DS_NOIDLEMSG;
    CreateDialogIndirectParamW(OwnModule(), &dialog.head, owner, DialogProcedure,
                               reinterpret_cast<LPARAM>(this));
    if (!m_window || (Active() && !Show(m_active))) return false;
    ShowWindow(m_window, SW_SHOW);
    return true;
}

void CSheet::Loop() {
    while (m_window && !m_ended) {
        MSG message;
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));  // for the loops further out
            return;
        }
        if (SwitchesPage(message) || IsDialogMessageW(m_window, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool CSheet::SwitchesPage(const MSG& message) {
    const bool inside = message.hwnd == m_window || IsChild(m_window, message.hwnd);
    if (!inside || message.message != WM_KEYDOWN || message.wParam != VK_TAB || GetKeyState(VK_CONTROL) >= 0)
        return false;
    const size_t count = m_pages.size();
    if (count > 1) GoTo((m_active + (GetKeyState(VK_SHIFT) < 0 ? count - 1 : 1)) % count);
    return true;
}

INT_PTR CALLBACK CSheet::DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        auto& sheet = *reinterpret_cast<CSheet*>(lParam);
        sheet.m_window = window;
        sheet.OnInitDialog();
        return FALSE;
    }
    auto* sheet = reinterpret_cast<CSheet*>(GetWindowLongPtrW(window, DWLP_USER));
    const auto answer = sheet ? sheet->OnMessage(message, wParam, lParam) : std::nullopt;
    if (answer) SetWindowLongPtrW(window, DWLP_MSGRESULT, *answer);
    return answer.has_value();
}

void CSheet::OnInitDialog() {
    SetWindowTextW(m_window, m_caption.c_str());
    SHINITDLGINFO info = {SHIDIM_FLAGS, m_window,
                          SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_DONEBUTTON | SHIDIF_SIPDOWN};
    SHInitDialog(&info);
    GetClientRect(m_window, &m_pageArea);
    if (m_pages.empty()) return;
    m_tabs.Create(m_window);
    m_pageArea.bottom -= m_tabs.Height();
    for (const auto& page : m_pages) m_tabs.Add(page->Title());
}

std::optional<LRESULT> CSheet::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) == IDOK) Accept();
            if (LOWORD(wParam) == IDCANCEL) Cancel(false);
            return 0;
        case WM_CLOSE:
            Cancel(true);
            return 0;
        case WM_NOTIFY: {
            const auto& notice = *reinterpret_cast<const NMHDR*>(lParam);
            return notice.hwndFrom == m_tabs.Window() ? OnTabNotice(notice.code) : std::nullopt;
        }
        case WM_NCDESTROY:
            m_window = nullptr;
            PostMessageW(nullptr, WM_NULL, 0, 0);  // wakes the loop when another thread's message ended us
            return std::nullopt;
        case PSM_SETCURSEL:
            return GoTo(lParam ? Find(reinterpret_cast<CSheetPage*>(lParam)) : wParam);
        case PSM_PRESSBUTTON:
            Press(wParam);
            return 0;
        case PSM_APPLY:
            return Apply(false);
        case PSM_QUERYSIBLINGS:
            return AskPages(wParam, lParam);
        case PSM_SETTITLEW:
            SetWindowTextW(m_window,
                           RecordText(GetModuleHandleW(nullptr), reinterpret_cast<LPCWSTR>(lParam)).c_str());
            return 0;
        case PSM_GETTABCONTROL:
            return reinterpret_cast<LRESULT>(m_tabs.Window());
        case PSM_GETCURRENTPAGEHWND:
            return reinterpret_cast<LRESULT>(Active() ? Active()->Window() : nullptr);
        default:
            return std::nullopt;
    }
}

std::optional<LRESULT> CSheet::OnTabNotice(UINT code) {
    if (code == TCN_SELCHANGING) return !MayLeave();
    if (code == TCN_SELCHANGE) Show(m_tabs.Selected());
    return 0;
}

size_t CSheet::Find(const CSheetPage* page) const {
    const auto same = [page](const auto& own) { return own.get() == page; };
    return std::find_if(m_pages.begin(), m_pages.end(), same) - m_pages.begin();
}

// The page's handlers run while they are asked, and may close the sheet.
bool CSheet::MayLeave() const {
    return (!Active() || !Active()->Notify(m_window, PSN_KILLACTIVE)) && m_window;
}

// A page that cannot be made leaves the one before it in front.
bool CSheet::Show(size_t page) {
    CSheetPage& next = *m_pages[page];
    const bool made = next.Window() || next.Create(m_window, m_pageArea, m_tabs.Font());
    if (made) {
        next.Notify(m_window, PSN_SETACTIVE);
        if (!m_window) return false;
        if (page != m_active) ShowWindow(Active()->Window(), SW_HIDE);
        m_active = page;
        ShowWindow(next.Window(), SW_SHOW);
        const HWND first = GetNextDlgTabItem(next.Window(), nullptr, FALSE);
        SendMessageW(m_window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first ? first : next.Window()), TRUE);
    }
    m_tabs.Select(m_active);
    return made;
}

// Pages that were never shown hear nothing.  One that refuses comes to the front, unless it asks not to.
bool CSheet::Apply(bool closing) {
    if (!MayLeave()) return false;
    for (size_t i = 0; i < m_pages.size(); ++i) {
        const LRESULT answer = m_pages[i]->Notify(m_window, PSN_APPLY, closing);
        if (!m_window) return false;
        if (answer == PSNRET_NOERROR) continue;
        if (answer == PSNRET_INVALID && i != m_active) Show(i);
        return false;
    }
    return true;
}

void CSheet::Accept() {
    if (Apply(true)) End(1);
}

void CSheet::Cancel(bool byCross) {
    if (Active() && Active()->Notify(m_window, PSN_QUERYCANCEL)) return;
    for (const auto& page : m_pages) page->Notify(m_window, PSN_RESET, byCross);
    End(0);
}

void CSheet::Press(WPARAM button) {
    switch (button) {
        case PSBTN_OK:
            return Accept();
        case PSBTN_CANCEL:
            return Cancel(false);
        case PSBTN_APPLYNOW:
            Apply(false);
            return;
    }
}

LRESULT CSheet::AskPages(WPARAM wParam, LPARAM lParam) const {
    for (const auto& page : m_pages)
        if (const LRESULT answer =
                page->Window() ? SendMessageW(page->Window(), PSM_QUERYSIBLINGS, wParam, lParam) : 0)
            return answer;
    return 0;
}

void CSheet::End(INT_PTR result) {
    m_result = result;
    m_ended = true;
}

}  // namespace handheld
