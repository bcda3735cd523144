// Helpers that read this program's own resources.
#pragma once
#include <windows.h>

#include <string>

// A string of the string table; empty when there is none.
std::wstring moduleString(UINT id);

// Whether a text is written in the script of a language: ideographs for the Chinese indexes, Hangul for
// Korean, Latin for all others. Digits, blanks and punctuation belong to every script.
bool inScriptOf(unsigned language, const std::wstring& text);
