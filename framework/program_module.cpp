#include "framework/program_module.h"

std::wstring ResourceText(UINT id) {
    for (std::wstring text(128, L'\0');; text.resize(2 * text.size())) {
        const int length = LoadStringW(ProgramModule(), id, text.data(), static_cast<int>(text.size()));
        if (length + 1 < static_cast<int>(text.size())) {  // a full buffer may hold a cut text
            text.resize(static_cast<std::size_t>(length));
            return text;
        }
    }
}

const void* ResourceBytes(UINT id, const wchar_t* type) {
    const HRSRC resource = FindResourceW(ProgramModule(), MAKEINTRESOURCEW(id), type);
    // The handle of a loaded resource is its address; CE has no call to turn one into the other.
    return resource ? LoadResource(ProgramModule(), resource) : nullptr;
}
