// The user-interface language and the button lettering, both chosen from a locale identifier.  Portable.
#pragma once
#include <cstdint>

inline constexpr uint32_t kLanguageCount = 9;
inline constexpr uint32_t kFirstMenu = 348;  // menu resources 348..356, one a language
inline constexpr uint32_t kLetteringSlots = 10;

constexpr uint32_t PrimaryLanguage(uint32_t lcid) { return lcid & 0x3FF; }
constexpr uint32_t SubLanguage(uint32_t lcid) { return (lcid >> 10) & 0x3F; }

// 0 English and all others, 1 Simplified Chinese, 2 Traditional Chinese, 3 German, 4 French, 5 Italian,
// 6 Portuguese, 7 Spanish, 8 Korean.
uint32_t LanguageIndex(uint32_t lcid);

// Ten bitmap resources that carry the buttons' lettering.
const uint16_t* LetteringSet(uint32_t lcid);
