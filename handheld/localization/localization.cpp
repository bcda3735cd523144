#include "handheld/localization/localization.h"

#include <iterator>

#include "localized_texts.h"

void getStr(DWORD language, DWORD id, const wchar_t** text) {
    if (text == nullptr) return;
    const auto& texts = kTexts[language < std::size(kTexts) ? language : 0];
    const DWORD place = id - kFirstTextId;  // an id below the first wraps round and is out of range as well
    *text = place < std::size(texts) ? texts[place] : L"";
}
