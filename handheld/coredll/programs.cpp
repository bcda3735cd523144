// Starting programs and loading libraries by the handheld's paths.
#include <optional>
#include <string>

#include "handheld/common/store_path.h"
#include "handheld/coredll/module.h"
#include "handheld/coredll/store.h"

using namespace handheld;

namespace {

bool SameText(const std::wstring& a, const wchar_t* b) {
    return lstrcmpiW(a.c_str(), b) == 0;
}

std::optional<std::wstring> IfFile(std::wstring path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || attributes & FILE_ATTRIBUTE_DIRECTORY) return std::nullopt;
    return path;
}

// Desktop path of a program or library.  "\Windows" is the store's folder first and then the folder of this
// library, which plays the part of the handheld's ROM; a name without a path is looked for in "\Windows".
std::optional<std::wstring> FindModuleFile(const wchar_t* name) {
    if (!name) return std::nullopt;
    if (!IsInStore(name)) {
        if (std::wstring(name).find_first_of(L"\\/:") != std::wstring::npos) return IfFile(name);
        return FindModuleFile((L"\\Windows\\" + std::wstring(name)).c_str());
    }
    const auto stored = DesktopPath(name);
    if (!stored) return std::nullopt;
    if (auto file = IfFile(*stored)) return file;
    const std::wstring romFolder = StoreRoot() + L"\\Windows";
    const size_t slash = stored->find_last_of(L'\\');
    if (!SameText(stored->substr(0, slash), romFolder.c_str())) return std::nullopt;
    return IfFile(OwnFolder() + stored->substr(slash));
}

}  // namespace

extern "C" {

// The command line holds the arguments only.  What the handheld leaves null (security, environment, folder,
// start-up record) is not looked at.
BOOL WINAPI HandheldCreateProcessW(LPCWSTR program, LPCWSTR arguments, SECURITY_ATTRIBUTES*,
                                   SECURITY_ATTRIBUTES*, BOOL, DWORD flags, void*, LPWSTR, STARTUPINFOW*,
                                   PROCESS_INFORMATION* made) {
    const auto path = FindModuleFile(program);
    if (!path) {
        SetLastError(program ? ERROR_FILE_NOT_FOUND : ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    std::wstring line = L'"' + *path + L'"';
    if (arguments && *arguments) line += L' ' + std::wstring(arguments);
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION process;
    if (!CreateProcessW(path->c_str(), line.data(), nullptr, nullptr, FALSE, flags & CREATE_SUSPENDED,
                        nullptr, nullptr, &start, &process))
        return FALSE;
    if (made) {
        *made = process;
    } else {
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    return TRUE;
}

HMODULE WINAPI HandheldLoadLibraryW(LPCWSTR name) {
    if (name && (SameText(name, L"coredll.dll") || SameText(name, L"coredll"))) {
        // Through the desktop, so that the matching FreeLibrary is counted.
        return LoadLibraryW((OwnFolder() + L"\\coredll.dll").c_str());
    }
    const auto path = FindModuleFile(name);
    if (path) return LoadLibraryExW(path->c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (name && !IsInStore(name)) return LoadLibraryW(name);
    SetLastError(name ? ERROR_MOD_NOT_FOUND : ERROR_INVALID_PARAMETER);
    return nullptr;
}

FARPROC WINAPI HandheldGetProcAddressW(HMODULE library, LPCWSTR name) {
    if (reinterpret_cast<ULONG_PTR>(name) <= 0xFFFF)
        return GetProcAddress(library, reinterpret_cast<LPCSTR>(name));
    std::string narrow;
    for (const wchar_t* at = name; *at; ++at) {
        if (*at > 0x7F) {
            SetLastError(ERROR_PROC_NOT_FOUND);
            return nullptr;
        }
        narrow += static_cast<char>(*at);
    }
    return GetProcAddress(library, narrow.c_str());
}

}  // extern "C"
