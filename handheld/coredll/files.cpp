// File calls: store paths are mapped, everything else goes to the desktop as it is.
#include <algorithm>
#include <cstdio>

#include "handheld/coredll/devices.h"
#include "handheld/coredll/handle_table.h"
#include "handheld/coredll/store.h"
#include "handheld/coredll/store_space.h"

using namespace handheld;

namespace {

constexpr DWORD kWriting = GENERIC_WRITE | GENERIC_ALL | FILE_WRITE_DATA | FILE_APPEND_DATA;

uint64_t FileBytes(HANDLE file) {
    LARGE_INTEGER size;
    return GetFileSizeEx(file, &size) ? size.QuadPart : 0;
}

uint64_t FilePosition(HANDLE file) {
    LARGE_INTEGER position;
    return SetFilePointerEx(file, {}, &position, FILE_CURRENT) ? position.QuadPart : 0;
}

// Bytes that a file would grow by when it is written up to an end.
uint64_t Growth(HANDLE file, uint64_t end) {
    const uint64_t size = FileBytes(file);
    return end - std::min(end, size);
}

uint64_t RoomLeft() {
    const auto space = MeasureStore();
    return space ? space->free : UINT64_MAX;
}

// Runs a desktop call on a mapped path; a path that cannot be mapped fails.
template <class Result, class Call>
Result OnPath(const wchar_t* path, Result failure, Call call) {
    const auto desktop = DesktopPath(path);
    return desktop ? call(desktop->c_str()) : failure;
}

// The same for calls that change what the store holds.
template <class Call>
BOOL ChangeStore(const wchar_t* path, Call call) {
    const BOOL done = OnPath(path, FALSE, call);
    const DWORD error = GetLastError();
    if (IsInStore(path)) ForgetStoreSpace();
    SetLastError(error);
    return done;
}

bool HasMode(const std::wstring& mode, const wchar_t* letters) {
    return mode.find_first_of(letters) != std::wstring::npos;
}

std::wstring Widen(const char* text) {
    std::wstring wide(MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), static_cast<int>(wide.size()));
    wide.pop_back();
    return wide;
}

}  // namespace

extern "C" {

HANDLE WINAPI HandheldCreateFileW(LPCWSTR name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                                  DWORD disposition, DWORD flags, HANDLE pattern) {
    if (IsDeviceName(name)) return OpenDevice(name, access, share);
    const auto path = DesktopPath(name);
    if (!path) return INVALID_HANDLE_VALUE;
    HANDLE file = CreateFileW(path->c_str(), access, share, security, disposition, flags, pattern);
    if (file == INVALID_HANDLE_VALUE || !IsInStore(name) || !(access & kWriting)) return file;
    const DWORD existed = GetLastError();
    Handles<StoreFile>().Add(file, std::make_shared<StoreFile>(StoreFile{*path}));
    if (disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING) ForgetStoreSpace();
    SetLastError(existed);
    return file;
}

// Writes what still fits; the rest fails with ERROR_DISK_FULL.
BOOL WINAPI HandheldWriteFile(HANDLE file, LPCVOID bytes, DWORD count, DWORD* written,
                              OVERLAPPED* overlapped) {
    if (!Handles<StoreFile>().Find(file)) return WriteFile(file, bytes, count, written, overlapped);
    const uint64_t growth = Growth(file, FilePosition(file) + count);
    const uint64_t room = growth ? RoomLeft() : 0;
    const uint64_t missing = growth - std::min(growth, room);
    const DWORD fitting = count - static_cast<DWORD>(std::min<uint64_t>(missing, count));
    DWORD done = 0;
    const uint64_t before = FileBytes(file);
    BOOL result = !missing || fitting ? WriteFile(file, bytes, fitting, &done, overlapped) : FALSE;
    AddStoredBytes(FileBytes(file) - before);
    if (written) *written = done;
    if (missing) {
        SetLastError(ERROR_DISK_FULL);
        result = FALSE;
    }
    return result;
}

BOOL WINAPI HandheldSetEndOfFile(HANDLE file) {
    if (!Handles<StoreFile>().Find(file)) return SetEndOfFile(file);
    if (Growth(file, FilePosition(file)) > RoomLeft()) {
        SetLastError(ERROR_DISK_FULL);
        return FALSE;
    }
    const BOOL done = SetEndOfFile(file);
    ForgetStoreSpace();
    return done;
}

BOOL WINAPI HandheldDeleteFileW(LPCWSTR name) {
    return ChangeStore(name, DeleteFileW);
}

BOOL WINAPI HandheldCreateDirectoryW(LPCWSTR name, SECURITY_ATTRIBUTES* security) {
    return OnPath(name, FALSE, [&](const wchar_t* path) { return CreateDirectoryW(path, security); });
}

BOOL WINAPI HandheldRemoveDirectoryW(LPCWSTR name) {
    return OnPath(name, FALSE, RemoveDirectoryW);
}

DWORD WINAPI HandheldGetFileAttributesW(LPCWSTR name) {
    return OnPath(name, INVALID_FILE_ATTRIBUTES, GetFileAttributesW);
}

BOOL WINAPI HandheldGetFileAttributesExW(LPCWSTR name, GET_FILEEX_INFO_LEVELS level, void* data) {
    return OnPath(name, FALSE, [&](const wchar_t* path) { return GetFileAttributesExW(path, level, data); });
}

BOOL WINAPI HandheldSetFileAttributesW(LPCWSTR name, DWORD attributes) {
    return OnPath(name, FALSE, [&](const wchar_t* path) { return SetFileAttributesW(path, attributes); });
}

BOOL WINAPI HandheldMoveFileW(LPCWSTR from, LPCWSTR to) {
    return ChangeStore(from, [&](const wchar_t* source) {
        return ChangeStore(to, [&](const wchar_t* target) { return MoveFileW(source, target); });
    });
}

BOOL WINAPI HandheldCopyFileW(LPCWSTR from, LPCWSTR to, BOOL keepExisting) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (IsInStore(to) && HandheldGetFileAttributesExW(from, GetFileExInfoStandard, &data) &&
        ((uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow) > RoomLeft()) {
        SetLastError(ERROR_DISK_FULL);
        return FALSE;
    }
    return OnPath(from, FALSE, [&](const wchar_t* source) {
        return ChangeStore(to,
                           [&](const wchar_t* target) { return CopyFileW(source, target, keepExisting); });
    });
}

// A store folder, or no folder at all, asks for the store.
BOOL WINAPI HandheldGetDiskFreeSpaceExW(LPCWSTR folder, ULARGE_INTEGER* available, ULARGE_INTEGER* total,
                                        ULARGE_INTEGER* free) {
    if (folder && !IsInStore(folder)) return GetDiskFreeSpaceExW(folder, available, total, free);
    const DWORD attributes = HandheldGetFileAttributesW(folder ? folder : L"\\");
    if (attributes == INVALID_FILE_ATTRIBUTES) return FALSE;
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) {
        SetLastError(ERROR_DIRECTORY);
        return FALSE;
    }
    const auto space = MeasureStore();
    if (!space) return FALSE;
    if (available) available->QuadPart = space->free;
    if (total) total->QuadPart = space->total;
    if (free) free->QuadPart = space->free;
    return TRUE;
}

// What is written through a C stream reaches the desktop's file directly: it is counted, but not stopped at
// the store's end.
FILE* Handheld_wfopen(const wchar_t* name, const wchar_t* mode) {
    FILE* stream =
        OnPath(name, static_cast<FILE*>(nullptr), [&](const wchar_t* path) { return _wfopen(path, mode); });
    if (stream && HasMode(mode, L"wa+") && IsInStore(name)) ForgetStoreSpace();
    return stream;
}

FILE* Handheldfopen(const char* name, const char* mode) {
    return Handheld_wfopen(Widen(name).c_str(), Widen(mode).c_str());
}

}  // extern "C"
