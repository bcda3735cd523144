#include "handheld/commctrl/sheet_page.h"

#include <cstring>

#include "handheld/coredll/look.h"

namespace handheld {
namespace {

constexpr wchar_t kPageProperty[] = L"HandheldPage";

std::optional<PageTemplate> LoadTemplate(const PROPSHEETPAGEW& record) {
    if (record.dwFlags & PSP_DLGINDIRECT) return std::nullopt;
    HRSRC resource = FindResourceW(record.hInstance, record.pszTemplate, RT_DIALOG);
    HGLOBAL loaded = resource ? LoadResource(record.hInstance, resource) : nullptr;
    if (!loaded) return std::nullopt;
    return ReadPageTemplate(LockResource(loaded), SizeofResource(record.hInstance, resource));
}

}  // namespace

std::wstring RecordText(HINSTANCE module, LPCWSTR text) {
    if (!IS_INTRESOURCE(text)) return text;
    const wchar_t* stored = nullptr;
    const int length =
        LoadStringW(module, LOWORD(reinterpret_cast<UINT_PTR>(text)), reinterpret_cast<LPWSTR>(&stored), 0);
    return std::wstring(stored, stored + length);
}

std::unique_ptr<CSheetPage> CSheetPage::Make(const PROPSHEETPAGEW& record) {
    if (record.dwSize < PROPSHEETPAGEW_V1_SIZE) return nullptr;
    auto read = LoadTemplate(record);
    if (!read) return nullptr;
    std::unique_ptr<CSheetPage> page(new CSheetPage);
    page->m_record = std::make_unique<BYTE[]>(record.dwSize);
    std::memcpy(page->m_record.get(), &record, record.dwSize);
    page->m_title =
        record.dwFlags & PSP_USETITLE ? RecordText(record.hInstance, record.pszTitle) : read->caption;
    page->m_template = std::move(*read);
    return page;
}

bool CSheetPage::Create(HWND sheet, const RECT& place, HFONT font) {
    m_window = CreateDialogIndirectParamW(
        Record().hInstance, reinterpret_cast<const DLGTEMPLATE*>(m_template.bytes.data()), sheet,
        Record().pfnDlgProc, reinterpret_cast<LPARAM>(m_record.get()));
    if (!Window()) return false;
    UseShellFont(m_window, font);
    SetPropW(m_window, kPageProperty, this);
    m_before = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProcedure)));
    SetWindowPos(m_window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    return true;
}

LRESULT CSheetPage::Notify(HWND sheet, UINT code, LPARAM detail) const {
    PSHNOTIFY notice = {{sheet, 0, code}, detail};
    return Window() ? SendMessageW(m_window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notice)) : 0;
}

LRESULT CALLBACK CSheetPage::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* page = static_cast<CSheetPage*>(GetPropW(window, kPageProperty));
    if (!page) return DefWindowProcW(window, message, wParam, lParam);
    const WNDPROC before = page->m_before;
    if (message == WM_NCDESTROY) {
        RemovePropW(window, kPageProperty);
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(before));
    }
    return DialogColour(message, wParam, CallWindowProcW(before, window, message, wParam, lParam));
}

}  // namespace handheld
