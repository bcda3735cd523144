#include "handheld/coredll/store.h"

#include <vector>

#include "handheld/coredll/environment.h"

namespace handheld {
namespace {

constexpr const wchar_t* kFirstFolders[] = {L"\\My Documents", L"\\Windows"};

// Makes a folder and its parents; failures show when the store is used.
void MakeFolders(const std::wstring& path) {
    for (size_t end = path.find(L'\\', 3); end != std::wstring::npos; end = path.find(L'\\', end + 1))
        CreateDirectoryW(path.substr(0, end).c_str(), nullptr);
    CreateDirectoryW(path.c_str(), nullptr);
}

std::wstring ChooseRoot() {
    std::wstring root = Variable(L"HANDHELD_ROOT");
    if (root.empty()) {
        const std::wstring home = Variable(L"HOME");
        // Only a Linux home begins with a slash; Windows shells may set HOME too.
        root = !home.empty() && home[0] == L'/' ? home + L"/.local/share/zel-camera/store"
                                                : Variable(L"LOCALAPPDATA") + L"\\zel-camera\\store";
    }
    root = FromUnixPath(root);
    for (wchar_t& c : root)
        if (c == L'/') c = L'\\';
    while (!root.empty() && root.back() == L'\\') root.pop_back();
    return root;
}

// Names that the desktop opens as a device in whatever folder they stand.
bool IsDesktopDevice(const std::wstring& part) {
    std::wstring stem = part.substr(0, part.find(L'.'));
    while (!stem.empty() && stem.back() == L' ') stem.pop_back();
    for (const wchar_t* name : {L"CON", L"PRN", L"AUX", L"NUL"})
        if (lstrcmpiW(stem.c_str(), name) == 0) return true;
    if (stem.size() != 4 || stem[3] < L'0' || stem[3] > L'9') return false;
    stem.pop_back();
    return lstrcmpiW(stem.c_str(), L"COM") == 0 || lstrcmpiW(stem.c_str(), L"LPT") == 0;
}

}  // namespace

bool IsStorePath(const wchar_t* path) {
    return path && path[0] == L'\\' && path[1] != L'\\';
}

const std::wstring& StoreRoot() {
    static const std::wstring root = [] {
        const std::wstring folder = ChooseRoot();
        MakeFolders(folder);
        for (const wchar_t* first : kFirstFolders) CreateDirectoryW((folder + first).c_str(), nullptr);
        return folder;
    }();
    return root;
}

std::optional<std::wstring> NormaliseStorePath(const wchar_t* path) {
    std::vector<std::wstring> parts;
    for (const wchar_t* at = path; *at;) {
        const wchar_t* end = at;
        while (*end && *end != L'\\' && *end != L'/') ++end;
        std::wstring part(at, end);
        at = *end ? end + 1 : end;
        if (part == L"..") {
            if (!parts.empty()) parts.pop_back();
        } else if (!part.empty() && part != L".") {
            if (part.find(L':') != std::wstring::npos || IsDesktopDevice(part)) return std::nullopt;
            parts.push_back(std::move(part));
        }
    }
    std::wstring result;
    for (const std::wstring& part : parts) result += L'\\' + part;
    return result;
}

std::optional<std::wstring> DesktopPath(const wchar_t* path) {
    if (!path) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return std::nullopt;
    }
    if (!IsStorePath(path)) return path;
    std::optional<std::wstring> inside = NormaliseStorePath(path);
    if (!inside) {
        SetLastError(ERROR_INVALID_NAME);
        return std::nullopt;
    }
    return StoreRoot() + *inside;
}

}  // namespace handheld
