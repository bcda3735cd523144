// The handheld's library of texts.
#pragma once
#include <windows.h>

// Stores the address of a text. The text lives as long as the library and is never changed.
// language: index 0..8 as in texts/ (English, Simplified and Traditional Chinese, German, French, Italian,
// Portuguese, Spanish, Korean); any other index is taken as English. An id without a text yields the empty
// text. Without a place for the address nothing happens.
extern "C" void getStr(DWORD language, DWORD id, const wchar_t** text);
