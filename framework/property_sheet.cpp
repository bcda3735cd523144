#include "framework/property_sheet.h"

#include "framework/program_module.h"

int CPropertySheet::DoModal(HWND owner) {
    std::vector<PROPSHEETPAGEW_V1> pages;
    for (CPropertyPage* page : m_pages) pages.push_back(page->Describe());
    PROPSHEETHEADERW header = {};
    // The record's first version, as with the pages.
    header.dwSize = PROPSHEETHEADERW_V1_SIZE;
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_NOAPPLYNOW;
    header.hwndParent = owner;
    header.hInstance = ProgramModule();
    header.pszCaption = m_caption.c_str();
    header.nPages = static_cast<UINT>(pages.size());
    header.ppsp = reinterpret_cast<LPCPROPSHEETPAGEW>(pages.data());
    const INT_PTR result = PropertySheetW(&header);
    if (result < 0) return -1;
    return result > 0 ? IDOK : IDCANCEL;
}
