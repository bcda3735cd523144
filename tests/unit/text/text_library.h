// Localization.dll from the build folder, loaded once.
#pragma once
#include <windows.h>

#include <string>

using GetStr = void (*)(DWORD language, DWORD id, const wchar_t** text);

// Null when the library or its export is missing.
GetStr textLookup();

// A text as the program would get it; "(no lookup)" without the library.
std::wstring text(DWORD language, DWORD id);
