#include "handheld/common/store_path.h"

#include <algorithm>
#include <vector>

#include "handheld/common/settings.h"

namespace handheld {
namespace {

// The Linux user's home folder under Wine, else empty. Wine keeps HOME from Windows programs and gives an NT
// name instead: "\??\unix\home\me" or "\??\Z:\home\me".
std::wstring LinuxHome() {
    const std::wstring prefix = L"\\??\\", unixPrefix = L"unix";
    std::wstring home = TextSetting(L"WINEHOMEDIR");
    if (home.compare(0, prefix.size(), prefix) != 0) return {};
    home.erase(0, prefix.size());
    if (home.compare(0, unixPrefix.size(), unixPrefix) != 0) return home;
    home.erase(0, unixPrefix.size());
    std::replace(home.begin(), home.end(), L'\\', L'/');
    return FromUnixPath(home);
}

std::wstring DefaultRoot() {
    const std::wstring home = LinuxHome();
    const std::wstring data = home.empty() ? TextSetting(L"LOCALAPPDATA") : home + L"\\.local\\share";
    return data + L"\\zel-camera\\store";
}

}  // namespace

std::wstring StoreRoot() {
    std::wstring root = PathSetting(L"HANDHELD_ROOT");
    if (root.empty()) root = DefaultRoot();
    std::replace(root.begin(), root.end(), L'/', L'\\');
    while (!root.empty() && root.back() == L'\\') root.pop_back();
    return root;
}

bool IsStorePath(const std::wstring& path) {
    return !path.empty() && path[0] == L'\\' && (path.size() == 1 || path[1] != L'\\');
}

std::optional<std::wstring> NormaliseStorePath(const std::wstring& path) {
    std::vector<std::wstring> parts;
    for (size_t at = 0; at < path.size();) {
        const size_t end = std::min(path.find_first_of(L"\\/", at), path.size());
        const std::wstring part = path.substr(at, end - at);
        at = end + 1;
        if (part == L"..") {
            if (!parts.empty()) parts.pop_back();
        } else if (!part.empty() && part != L".") {
            if (part.find(L':') != std::wstring::npos) return std::nullopt;
            parts.push_back(part);
        }
    }
    std::wstring result;
    for (const std::wstring& part : parts) result += L'\\' + part;
    return result;
}

std::optional<std::wstring> StoreToDesktop(const std::wstring& path) {
    if (!IsStorePath(path)) return std::nullopt;
    const std::optional<std::wstring> inside = NormaliseStorePath(path);
    if (!inside) return std::nullopt;
    return StoreRoot() + *inside;
}

}  // namespace handheld
