// Property sheets.  Of the flags those count that choose the pages, the titles and the first page; sheets are
// modal.
#include <windows.h>

#include <commctrl.h>

#include "handheld/commctrl/sheet_window.h"

using namespace handheld;

namespace {

using Pages = std::vector<std::unique_ptr<CSheetPage>>;

// The sheet's pages, from records that lie one behind another or from handles, which become the sheet's.
Pages TakePages(const PROPSHEETHEADERW& header) {
    Pages pages;
    const auto* record = reinterpret_cast<const BYTE*>(header.ppsp);
    for (UINT i = 0; i < header.nPages; ++i) {
        if (header.dwFlags & PSH_PROPSHEETPAGE) {
            const auto& page = *reinterpret_cast<const PROPSHEETPAGEW*>(record);
            pages.push_back(CSheetPage::Make(page));
            record += page.dwSize;
        } else {
            pages.emplace_back(reinterpret_cast<CSheetPage*>(header.phpage[i]));
        }
    }
    return pages;
}

}  // namespace

extern "C" {

HPROPSHEETPAGE WINAPI HandheldCreatePropertySheetPageW(LPCPROPSHEETPAGEW record) {
    return record ? reinterpret_cast<HPROPSHEETPAGE>(CSheetPage::Make(*record).release()) : nullptr;
}

BOOL WINAPI HandheldDestroyPropertySheetPage(HPROPSHEETPAGE page) {
    delete reinterpret_cast<CSheetPage*>(page);
    return page != nullptr;
}

INT_PTR WINAPI HandheldPropertySheetW(LPCPROPSHEETHEADERW header) {
    constexpr DWORD kNotHere = PSH_MODELESS | PSH_WIZARD;
    if (!header || header->dwSize < PROPSHEETHEADERW_V1_SIZE || header->dwFlags & kNotHere) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    Pages pages = TakePages(*header);
    for (const auto& page : pages)
        if (!page) {
            SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
            return -1;
        }
    const bool startIsNumber = !(header->dwFlags & PSH_USEPSTARTPAGE);
    const size_t start = startIsNumber && header->nStartPage < pages.size() ? header->nStartPage : 0;
    return CSheet(std::move(pages), RecordText(header->hInstance, header->pszCaption), start)
        .Run(header->hwndParent);
}

}  // extern "C"
