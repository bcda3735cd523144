// The program's own module (the instance that its entry is called with), where its resources are.
#pragma once
#include "platform/ce.h"

#include <string>

inline HINSTANCE ProgramModule() {
    return GetModuleHandleW(nullptr);
}

// A text of the program's string table; empty when there is none with this id.
std::wstring ResourceText(UINT id);

// A resource's bytes for as long as the program runs, or null.  `type`: RT_DIALOG and the like.
const void* ResourceBytes(UINT id, const wchar_t* type);
