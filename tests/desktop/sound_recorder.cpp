// Stands in for the desktop's sound library beside a copy of the program: writes down which sounds are asked for.
// SOUND_RECORD names the file, one line a sound: the resource's name and the module it is taken from.
#include <windows.h>

#include <cstdio>

extern "C" BOOL WINAPI RecordSound(LPCWSTR name, HMODULE module, DWORD) {
    wchar_t file[MAX_PATH] = {};
    wchar_t owner[MAX_PATH] = {};
    GetEnvironmentVariableW(L"SOUND_RECORD", file, MAX_PATH);
    GetModuleFileNameW(module, owner, MAX_PATH);
    const wchar_t* const slash = wcsrchr(owner, L'\\');
    if (FILE* const record = _wfopen(file, L"a")) {
        std::fprintf(record, "%ls of %ls\n", name, slash != nullptr ? slash + 1 : owner);
        std::fclose(record);
    }
    return TRUE;
}
