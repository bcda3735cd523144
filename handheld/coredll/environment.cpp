#include "handheld/coredll/environment.h"

#include <algorithm>
#include <cwchar>

#include "handheld/coredll/module.h"

namespace handheld {

std::wstring Variable(const wchar_t* name) {
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

unsigned long NumberVariable(const wchar_t* name, unsigned long fallback) {
    const std::wstring text = Variable(name);
    const bool digits =
        !text.empty() && text.size() <= 9 &&
        std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    return digits ? std::wcstoul(text.c_str(), nullptr, 10) : fallback;
}

std::wstring FromUnixPath(const std::wstring& path) {
    if (path.empty() || path[0] != L'/') return path;
    using ToDosName = WCHAR* __cdecl(const char*);
    if (auto* toDosName = DesktopFunction<ToDosName>(L"kernel32.dll", "wine_get_dos_file_name")) {
        std::string bytes(path.size() * 3 + 1, '\0');
        WideCharToMultiByte(CP_UTF8, 0, path.c_str(), -1, bytes.data(), static_cast<int>(bytes.size()),
                            nullptr, nullptr);
        if (WCHAR* name = toDosName(bytes.c_str())) {
            std::wstring result = name;
            HeapFree(GetProcessHeap(), 0, name);
            return result;
        }
    }
    // A folder whose parents do not exist yet has no name for the call above.
    std::wstring result = L"Z:" + path;
    std::replace(result.begin(), result.end(), L'/', L'\\');
    return result;
}

}  // namespace handheld
