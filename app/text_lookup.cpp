#include "app/text_lookup.h"

#include "platform/ce.h"

const wchar_t* LookUpText(const TextLookup& texts, uint32_t id) {
    const wchar_t* text = nullptr;
    if (texts.getText != nullptr) texts.getText(texts.language, id, &text);
    return text != nullptr ? text : L"";
}

bool LoadTexts(TextLookup& texts) {
    const HMODULE library = LoadLibraryW(L"\\Windows\\Localization.dll");
    if (library == nullptr) return false;
    texts.getText = reinterpret_cast<GetTextFunction>(reinterpret_cast<void*>(GetProcAddressW(library, L"getStr")));
    if (texts.getText == nullptr) FreeLibrary(library);
    return texts.getText != nullptr;
}
