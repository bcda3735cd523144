#include "handheld/korvoimgview/folder.h"

#include <windows.h>

#include "handheld/common/store_path.h"

namespace viewer {

std::wstring PictureFolder() {
    return handheld::StoreRoot() + L"\\My Documents\\My Pictures";
}

FilePlace PlaceOfPath(const std::wstring& path) {
    std::wstring desktop = path;
    if (handheld::IsStorePath(path)) {
        const auto stored = handheld::StoreToDesktop(path);
        desktop = stored ? *stored : path.substr(path.find_last_of(L"\\/") + 1);
    }
    const size_t slash = desktop.find_last_of(L"\\/");
    if (slash == std::wstring::npos) return {PictureFolder(), desktop};
    return {desktop.substr(0, slash), desktop.substr(slash + 1)};
}

std::vector<FolderFile> FilesIn(const std::wstring& folder) {
    std::vector<FolderFile> files;
    WIN32_FIND_DATAW entry;
    HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return files;
    do {
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) continue;
        const FILETIME& time = entry.ftLastWriteTime;
        files.push_back({entry.cFileName, uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime});
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    return files;
}

}  // namespace viewer
