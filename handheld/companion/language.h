// The languages of the programs beside the camera, chosen by the handheld's locale.  Portable.
#pragma once
#include <cstdint>

namespace handheld {

// Order of the columns in every table of texts.
enum class Language {
    english,
    simplifiedChinese,
    traditionalChinese,
    german,
    french,
    italian,
    portuguese,
    spanish,
    korean
};
inline constexpr int kLanguages = 9;

// English for every locale that has no texts of its own, other kinds of Chinese among them.
Language LanguageOf(uint32_t lcid);

// How the files of a language are marked: "de", "zh-hans"; "" for English.
const wchar_t* LanguageTag(Language language);

}  // namespace handheld
