// One page of a property sheet: what the program told about it, and its window once it has been shown.
#pragma once
#include <windows.h>

#include <commctrl.h>

#include <memory>

#include "handheld/commctrl/page_template.h"

namespace handheld {

class CSheetPage {
  public:
    // Copies the record with whatever the program appended to it; null when it or its template is no good.
    // The template is a resource: PSP_DLGINDIRECT is refused.  Callbacks and reference counts are not used.
    static std::unique_ptr<CSheetPage> Make(const PROPSHEETPAGEW& record);

    CSheetPage(const CSheetPage&) = delete;
    CSheetPage& operator=(const CSheetPage&) = delete;

    const std::wstring& Title() const { return m_title; }

    // Null before the page is first shown and when it is gone.
    HWND Window() const { return IsWindow(m_window) ? m_window : nullptr; }

    // Makes the window, hidden, in this place of the sheet and written in this font of the sheet's.
    bool Create(HWND sheet, const RECT& place, HFONT font);

    // Sends a PSN_ notification and gives the page's answer; 0 from a page without a window.
    LRESULT Notify(HWND sheet, UINT code, LPARAM detail = 0) const;

  private:
    CSheetPage() = default;
    const PROPSHEETPAGEW& Record() const { return *reinterpret_cast<const PROPSHEETPAGEW*>(m_record.get()); }
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    std::unique_ptr<BYTE[]> m_record;
    PageTemplate m_template;
    std::wstring m_title;
    HWND m_window = nullptr;
    WNDPROC m_before = nullptr;
};

// A text of a sheet's or page's record: itself, or a string resource by number.
std::wstring RecordText(HINSTANCE module, LPCWSTR text);

}  // namespace handheld
