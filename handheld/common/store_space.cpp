#include "handheld/common/store_space.h"

#include <windows.h>

#include <string>

#include "handheld/common/settings.h"
#include "handheld/common/store_path.h"

namespace handheld {
namespace {

constexpr uint32_t kDefaultStoreKb = 65536, kLargestStoreKb = 999999999;

// Adds up the files below a folder; links are left out, they lead elsewhere.
uint64_t UsedBytes(const std::wstring& folder) {
    WIN32_FIND_DATAW entry;
    HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return 0;
    uint64_t used = 0;
    do {
        const std::wstring name = entry.cFileName;
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT || name == L"." || name == L"..") continue;
        used += entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY
                    ? UsedBytes(folder + L'\\' + name)
                    : uint64_t{entry.nFileSizeHigh} << 32 | entry.nFileSizeLow;
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    return used;
}

}  // namespace

uint64_t StoreFreeBytes() {
    const uint64_t size =
        uint64_t{NumberSetting(L"HANDHELD_STORE_KB", kDefaultStoreKb, 0, kLargestStoreKb)} * 1024;
    const uint64_t used = UsedBytes(StoreRoot());
    return used < size ? size - used : 0;
}

}  // namespace handheld
