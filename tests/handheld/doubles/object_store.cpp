#include "handheld/doubles/object_store.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "fakes/picture_folder_fake.h"
#include "fakes/store_fake.h"

namespace {

StoreFake g_store;
std::vector<StoredFile> g_files;
std::vector<std::wstring> g_folders;

struct OpenStoredFile {
    const StoredFile* file;
    size_t at;
};

OpenStoredFile& Opened(FILE* file) {
    return *reinterpret_cast<OpenStoredFile*>(file);
}

}  // namespace

int g_pictureFolderEnsured = 0;

StoreFake& ResetStoreFake() {
    return g_store = {};
}

std::vector<StoredFile>& StoredFiles() {
    return g_files;
}

std::vector<std::wstring>& StoredFolders() {
    return g_folders;
}

const StoredFile* FindStoredFile(const std::wstring& path) {
    for (const StoredFile& file : g_files)
        if (file.path == path) return &file;
    return nullptr;
}

extern "C" {

BOOL WINAPI GetDiskFreeSpaceExW(LPCWSTR folder, PULARGE_INTEGER available, PULARGE_INTEGER total,
                                PULARGE_INTEGER unused) {
    ++g_store.questions;
    if (!g_store.readable || std::wstring(folder) != L"\\My Documents\\") return FALSE;
    available->QuadPart = g_store.freeBytes;
    total->QuadPart = unused->QuadPart = UINT64_C(0x1122334455667788);  // nobody's business
    return TRUE;
}

HANDLE WINAPI FindFirstFileW(LPCWSTR path, LPWIN32_FIND_DATAW) {
    if (std::wstring(path) == L"\\My Documents\\My Pictures") ++g_pictureFolderEnsured;
    const bool found = std::find(g_folders.begin(), g_folders.end(), path) != g_folders.end();
    return found ? reinterpret_cast<HANDLE>(0x5EA) : INVALID_HANDLE_VALUE;
}

BOOL WINAPI CreateDirectoryW(LPCWSTR path, LPSECURITY_ATTRIBUTES) {
    g_folders.push_back(path);
    return TRUE;
}

BOOL WINAPI DeleteFileW(LPCWSTR path) {
    const auto file =
        std::find_if(g_files.begin(), g_files.end(), [&](const StoredFile& it) { return it.path == path; });
    if (file == g_files.end()) return FALSE;
    g_files.erase(file);
    return TRUE;
}

FILE* _wfopen(const wchar_t* path, const wchar_t* mode) {
    const StoredFile* const file = FindStoredFile(path);
    if (file == nullptr || std::wstring(mode) != L"rb") return nullptr;
    return reinterpret_cast<FILE*>(new OpenStoredFile{file, 0});
}

int fclose(FILE* file) {
    delete &Opened(file);
    return 0;
}

int fseek(FILE* file, long offset, int origin) {
    OpenStoredFile& opened = Opened(file);
    opened.at = (origin == SEEK_END   ? opened.file->bytes.size()
                 : origin == SEEK_CUR ? opened.at
                                      : 0) +
                offset;
    return 0;
}

long ftell(FILE* file) {
    return static_cast<long>(Opened(file).at);
}

size_t fread(void* room, size_t size, size_t count, FILE* file) {
    OpenStoredFile& opened = Opened(file);
    const size_t left = opened.at < opened.file->bytes.size() ? opened.file->bytes.size() - opened.at : 0;
    const size_t items = std::min(count, left / size);
    std::memcpy(room, opened.file->bytes.data() + opened.at, items * size);
    opened.at += items * size;
    return items;
}
}
