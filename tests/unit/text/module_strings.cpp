#include "unit/text/module_strings.h"

#include "resources/resource.h"

std::wstring moduleString(UINT id) {
    wchar_t buffer[128] = {};
    const int length = LoadStringW(GetModuleHandleW(nullptr), id, buffer, 128);
    return std::wstring(buffer, length);
}

bool inScriptOf(unsigned language, const std::wstring& text) {
    const bool chinese = language == LANGUAGE_SIMPLIFIED_CHINESE || language == LANGUAGE_TRADITIONAL_CHINESE;
    bool letters = false;
    for (const wchar_t c : text) {
        const bool ideograph = c >= 0x4E00 && c <= 0x9FFF;
        const bool hangul = c >= 0xAC00 && c <= 0xD7A3;
        const bool latin = (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || (c >= 0xC0 && c <= 0x17F);
        if (!ideograph && !hangul && !latin) {
            if (c > 0x7E) return false;
            continue;
        }
        if (chinese ? !ideograph : language == LANGUAGE_KOREAN ? !hangul : !latin) return false;
        letters = true;
    }
    return letters;
}
