#include "handheld/common/settings.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>

namespace handheld {

std::wstring TextSetting(const wchar_t* name) {
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

uint32_t NumberSetting(const wchar_t* name, uint32_t fallback, uint32_t lowest, uint32_t highest) {
    const std::wstring text = TextSetting(name);
    const bool digits =
        !text.empty() && text.size() <= 9 &&
        std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    if (!digits) return fallback;
    const auto number = static_cast<uint32_t>(std::wcstoul(text.c_str(), nullptr, 10));
    return number >= lowest && number <= highest ? number : fallback;
}

std::wstring PathSetting(const wchar_t* name) {
    return FromUnixPath(TextSetting(name));
}

std::wstring FromUnixPath(const std::wstring& path) {
    if (path.empty() || path[0] != L'/') return path;
    // Only Wine's kernel has this call; on Windows such a path is relative to the drive.
    using ToDosName = WCHAR*(__cdecl*)(const char*);
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_dos_file_name");
    const auto toDosName = reinterpret_cast<ToDosName>(reinterpret_cast<void*>(found));
    if (!toDosName) return path;
    std::string bytes(path.size() * 3 + 1, '\0');
    WideCharToMultiByte(CP_UTF8, 0, path.c_str(), -1, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    if (WCHAR* name = toDosName(bytes.c_str())) {
        std::wstring result = name;
        HeapFree(GetProcessHeap(), 0, name);
        return result;
    }
    // A file whose folder does not exist yet has no name for that call.
    std::wstring result = L"Z:" + path;
    std::replace(result.begin(), result.end(), L'/', L'\\');
    return result;
}

}  // namespace handheld
