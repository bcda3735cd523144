#include "handheld/coredll/store.h"

#include <algorithm>

#include "handheld/common/store_path.h"

namespace handheld {
namespace {

constexpr const wchar_t* kFirstFolders[] = {L"\\My Documents", L"\\Windows"};

// Makes the store; failures show when it is used.
bool MakeStore() {
    const std::wstring root = StoreRoot();
    for (size_t end = root.find(L'\\', 3); end != std::wstring::npos; end = root.find(L'\\', end + 1))
        CreateDirectoryW(root.substr(0, end).c_str(), nullptr);
    CreateDirectoryW(root.c_str(), nullptr);
    for (const wchar_t* folder : kFirstFolders) CreateDirectoryW((root + folder).c_str(), nullptr);
    return true;
}

// Names that the desktop opens as a device in whatever folder they stand: "NUL", "com1.txt".
bool IsDesktopDevice(const std::wstring& part) {
    std::wstring stem = part.substr(0, part.find(L'.'));
    while (!stem.empty() && stem.back() == L' ') stem.pop_back();
    for (const wchar_t* name : {L"CON", L"PRN", L"AUX", L"NUL"})
        if (lstrcmpiW(stem.c_str(), name) == 0) return true;
    if (stem.size() != 4 || stem[3] < L'0' || stem[3] > L'9') return false;
    stem.pop_back();
    return lstrcmpiW(stem.c_str(), L"COM") == 0 || lstrcmpiW(stem.c_str(), L"LPT") == 0;
}

bool HasDesktopDevice(const std::wstring& inside) {
    for (size_t at = 0; at < inside.size();) {
        const size_t end = std::min(inside.find(L'\\', at + 1), inside.size());
        if (IsDesktopDevice(inside.substr(at + 1, end - at - 1))) return true;
        at = end;
    }
    return false;
}

}  // namespace

bool IsInStore(const wchar_t* path) {
    return path && IsStorePath(path);
}

std::optional<std::wstring> DesktopPath(const wchar_t* path) {
    if (!path) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return std::nullopt;
    }
    if (!IsStorePath(path)) return path;
    [[maybe_unused]] static const bool made = MakeStore();
    const auto inside = NormaliseStorePath(path);
    if (!inside || HasDesktopDevice(*inside)) {
        SetLastError(ERROR_INVALID_NAME);
        return std::nullopt;
    }
    return StoreRoot() + *inside;
}

}  // namespace handheld
