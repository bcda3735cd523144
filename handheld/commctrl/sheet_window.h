// A property sheet as the Pocket PC shows it: a screen of its own with "ok" in the title bar, the page in
// front, and the pages' tabs along the bottom edge.  Escape cancels; Ctrl+Tab goes round the pages.
#pragma once
#include <memory>
#include <vector>

#include "handheld/commctrl/sheet_page.h"
#include "handheld/commctrl/sheet_tabs.h"

namespace handheld {

class CSheet {
  public:
    // `start`: the page shown first.  A sheet without pages shows an empty one.
    CSheet(std::vector<std::unique_ptr<CSheetPage>> pages, std::wstring caption, size_t start)
        : m_pages(std::move(pages)), m_caption(std::move(caption)), m_active(start) {}
    ~CSheet();
    CSheet(const CSheet&) = delete;
    CSheet& operator=(const CSheet&) = delete;

    // Shows the sheet until it is closed; the owner is disabled meanwhile.  1 when it was closed with OK, 0
    // when it was cancelled or destroyed or the program is to end, -1 when it or its first page could not be
    // made.
    INT_PTR Run(HWND owner);

  private:
    bool Create(HWND owner);
    void Loop();
    bool SwitchesPage(const MSG& message);
    static INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    // The dialog procedure's answer, or nothing.
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnInitDialog();
    std::optional<LRESULT> OnTabNotice(UINT code);

    CSheetPage* Active() const { return m_active < m_pages.size() ? m_pages[m_active].get() : nullptr; }
    size_t Find(const CSheetPage* page) const;
    bool MayLeave() const;
    bool Show(size_t page);
    bool GoTo(size_t page) { return page < m_pages.size() && MayLeave() && Show(page); }
    bool Apply(bool closing);
    void Accept();
    void Cancel(bool byCross);
    void Press(WPARAM button);
    LRESULT AskPages(WPARAM wParam, LPARAM lParam) const;
    void End(INT_PTR result);

    const std::vector<std::unique_ptr<CSheetPage>> m_pages;
    const std::wstring m_caption;
    size_t m_active;
    HWND m_window = nullptr;
    CSheetTabs m_tabs;
    RECT m_pageArea = {};
    INT_PTR m_result = 0;
    bool m_ended = false;
};

}  // namespace handheld
