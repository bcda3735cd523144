// Searches: the handheld's shorter record, no "." and "..", and a search is an ordinary handle.
#include <cstring>

#include "handheld/coredll/handle_table.h"
#include "handheld/coredll/search.h"
#include "handheld/coredll/store.h"
#include "platform/ce.h"

using namespace handheld;

namespace {

bool IsSelfOrParent(const wchar_t* name) {
    return !lstrcmpW(name, L".") || !lstrcmpW(name, L"..");
}

void Fill(CeFindData& to, const WIN32_FIND_DATAW& from) {
    to.attributes = from.dwFileAttributes;
    to.creationTime = from.ftCreationTime;
    to.lastAccessTime = from.ftLastAccessTime;
    to.lastWriteTime = from.ftLastWriteTime;
    to.fileSizeHigh = from.nFileSizeHigh;
    to.fileSizeLow = from.nFileSizeLow;
    to.objectId = 0;
    std::memcpy(to.fileName, from.cFileName, sizeof to.fileName);
}

bool NextReal(HANDLE search, WIN32_FIND_DATAW& entry) {
    while (FindNextFileW(search, &entry))
        if (!IsSelfOrParent(entry.cFileName)) return true;
    return false;
}

}  // namespace

namespace handheld {

Search::~Search() {
    FindClose(handle);
}

}  // namespace handheld

extern "C" {

HANDLE WINAPI HandheldFindFirstFileW(LPCWSTR pattern, CeFindData* data) {
    const auto path = DesktopPath(pattern);
    if (!path) return INVALID_HANDLE_VALUE;
    WIN32_FIND_DATAW entry;
    HANDLE handle = FindFirstFileW(path->c_str(), &entry);
    if (handle == INVALID_HANDLE_VALUE) return handle;
    auto search = std::make_shared<Search>(handle);
    if (IsSelfOrParent(entry.cFileName) && !NextReal(handle, entry)) {
        search.reset();
        SetLastError(ERROR_NO_MORE_FILES);
        return INVALID_HANDLE_VALUE;
    }
    Fill(*data, entry);
    Handles<Search>().Add(handle, std::move(search));
    return handle;
}

BOOL WINAPI HandheldFindNextFileW(HANDLE handle, CeFindData* data) {
    const auto search = Handles<Search>().Find(handle);
    if (!search) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    WIN32_FIND_DATAW entry;
    if (!NextReal(search->handle, entry)) return FALSE;
    Fill(*data, entry);
    return TRUE;
}

BOOL WINAPI HandheldFindClose(HANDLE handle) {
    if (Handles<Search>().Take(handle)) return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}

}  // extern "C"
