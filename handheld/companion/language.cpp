#include "handheld/companion/language.h"

namespace handheld {
namespace {

struct Row {
    uint32_t primary;
    uint32_t sub;  // kAny: every country
    Language language;
};
constexpr uint32_t kAny = ~0u;
constexpr Row kRows[] = {
    {4, 2, Language::simplifiedChinese}, {4, 1, Language::traditionalChinese},
    {7, kAny, Language::german},         {12, kAny, Language::french},
    {16, kAny, Language::italian},       {22, kAny, Language::portuguese},
    {10, kAny, Language::spanish},       {18, kAny, Language::korean},
};

constexpr const wchar_t* kTags[kLanguages] = {L"",   L"zh-hans", L"zh-hant", L"de", L"fr",
                                              L"it", L"pt",      L"es",      L"ko"};

}  // namespace

Language LanguageOf(uint32_t lcid) {
    const uint32_t primary = lcid & 0x3FF, sub = lcid >> 10 & 0x3F;
    for (const Row& row : kRows)
        if (row.primary == primary && (row.sub == kAny || row.sub == sub)) return row.language;
    return Language::english;
}

const wchar_t* LanguageTag(Language language) {
    return kTags[static_cast<int>(language)];
}

}  // namespace handheld
