#include "unit/text/text_library.h"

GetStr textLookup() {
    static const GetStr lookup = [] {
        wchar_t program[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        std::wstring path = program;
        path = path.substr(0, path.rfind(L'\\')) + L"\\..\\Localization.dll";
        const HMODULE library = LoadLibraryW(path.c_str());
        return library ? reinterpret_cast<GetStr>(reinterpret_cast<void*>(GetProcAddress(library, "getStr")))
                       : nullptr;
    }();
    return lookup;
}

std::wstring text(DWORD language, DWORD id) {
    if (!textLookup()) return L"(no lookup)";
    const wchar_t* found = nullptr;
    textLookup()(language, id, &found);
    return found ? found : L"(null)";
}
