#include "handheld/common/store_space.h"

#include <windows.h>

#include <string>

#include "handheld/common/settings.h"
#include "handheld/common/store_path.h"

namespace handheld {
namespace {

constexpr uint32_t kDefaultStoreKb = 65536, kLargestStoreKb = 999999999;

bool AddFolder(const std::wstring& folder, uint64_t& used) {
    WIN32_FIND_DATAW entry;
    HANDLE search = FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &entry,
                                     FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) return false;
    bool readable = true;
    do {
        const std::wstring name = entry.cFileName;
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT || name == L"." || name == L"..") continue;
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
            readable = AddFolder(folder + L'\\' + name, used);
        else
            used += uint64_t{entry.nFileSizeHigh} << 32 | entry.nFileSizeLow;
    } while (readable && FindNextFileW(search, &entry));
    const DWORD error = GetLastError();
    FindClose(search);
    SetLastError(error);
    return readable && error == ERROR_NO_MORE_FILES;
}

}  // namespace

uint64_t StoreTotalBytes() {
    return uint64_t{NumberSetting(L"HANDHELD_STORE_KB", kDefaultStoreKb, 0, kLargestStoreKb)} * 1024;
}

std::optional<uint64_t> MeasureStoredBytes() {
    uint64_t used = 0;
    if (!AddFolder(StoreRoot(), used)) return std::nullopt;
    return used;
}

}  // namespace handheld
