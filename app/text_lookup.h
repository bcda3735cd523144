// User-visible texts by number, from the handheld's localisation library.
#pragma once
#include <cstdint>

// Stores the address of a text; owned by the library, alive as long as the program.
using GetTextFunction = void (*)(uint32_t language, uint32_t id, const wchar_t** text);

struct TextLookup {
    GetTextFunction getText = nullptr;
    uint32_t language = 0;
};

// Ids of the texts that the screen itself uses.
inline constexpr uint32_t kTextTitle = 50004;         // the program's name, caption of every message box
inline constexpr uint32_t kTextNoCamera = 50076;
inline constexpr uint32_t kTextDeletePicture = 50080;
inline constexpr uint32_t kTextNoSpace = 50081;

// The text in the current language; empty when the library is missing or does not know the id.
const wchar_t* LookUpText(const TextLookup& texts, uint32_t id);

// Loads "\Windows\Localization.dll" and its "getStr".  False when either is missing; nothing stays loaded then.
bool LoadTexts(TextLookup& texts);
