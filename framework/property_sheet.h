// CPropertySheet: a modal dialog of several pages with one OK and one Cancel.
#pragma once
#include "framework/property_page.h"

#include <string>
#include <vector>

class CPropertySheet {
  public:
    explicit CPropertySheet(std::wstring caption) : m_caption(std::move(caption)) {}

    // Pages appear in the order in which they are added; they must outlive DoModal.
    void AddPage(CPropertyPage& page) { m_pages.push_back(&page); }

    // IDOK when the sheet was closed with OK and every page that had been shown agreed; IDCANCEL otherwise;
    // -1 when it could not be created.
    int DoModal(HWND owner);

  private:
    const std::wstring m_caption;
    std::vector<CPropertyPage*> m_pages;
};
