#include "framework/property_page.h"

#include "framework/program_module.h"

Reply CPropertyPage::OnMessage(const Message& message) {
    using On = HandlersOf<CPropertyPage>;
    static constexpr MessageRow rows[] = {
        On::notify<kAnySender, PSN_SETACTIVE, &CPropertyPage::OnSetActive>,
        On::notify<kAnySender, PSN_KILLACTIVE, &CPropertyPage::OnKillActiveNotice>,
        On::notify<kAnySender, PSN_APPLY, &CPropertyPage::OnApplyNotice>,
        On::notify<kAnySender, PSN_RESET, &CPropertyPage::OnCancel>,
    };
    return Dispatch<rows, CDialogBase>(*this, message);
}

LRESULT CPropertyPage::OnKillActiveNotice() {
    return OnKillActive() ? FALSE : TRUE;
}

LRESULT CPropertyPage::OnApplyNotice() {
    return OnOK() ? PSNRET_NOERROR : PSNRET_INVALID;
}

PROPSHEETPAGEW_V1 CPropertyPage::Describe() {
    // The record's first version: the handheld knows no other, and the desktop takes it too.
    PROPSHEETPAGEW_V1 page = {};
    page.dwSize = sizeof page;
    page.dwFlags = PSP_USETITLE;
    page.hInstance = ProgramModule();
    page.pszTemplate = MAKEINTRESOURCEW(TemplateId());
    page.pszTitle = m_title.c_str();
    page.pfnDlgProc = &CPropertyPage::PageProcedure;
    page.lParam = reinterpret_cast<LPARAM>(this);
    return page;
}

INT_PTR CALLBACK CPropertyPage::PageProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto* page = reinterpret_cast<const PROPSHEETPAGEW_V1*>(lParam);
        return Begin(*reinterpret_cast<CPropertyPage*>(page->lParam), hwnd);
    }
    return Continue(hwnd, {message, wParam, lParam});
}
