#include "unit/viewer/store_fixture.h"

#include "unit/viewer/avi_bytes.h"

namespace viewer {
namespace {

void RemoveAll(const std::wstring& folder) {
    WIN32_FIND_DATAW entry;
    HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            const std::wstring name = entry.cFileName, path = folder + L'\\' + name;
            if (name == L"." || name == L"..") continue;
            if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                RemoveAll(path);
            else
                DeleteFileW(path.c_str());
        } while (FindNextFileW(search, &entry));
        FindClose(search);
    }
    RemoveDirectoryW(folder.c_str());
}

}  // namespace

CStoreFixture::CStoreFixture() {
    wchar_t folder[MAX_PATH], name[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"zel", 0, name);
    DeleteFileW(name);
    CreateDirectoryW(name, nullptr);
    m_root = name;
    SetEnvironmentVariableW(L"HANDHELD_ROOT", name);
    SetEnvironmentVariableW(L"HANDHELD_LCID", L"1033");
}

CStoreFixture::~CStoreFixture() {
    RemoveAll(m_root);
}

void CStoreFixture::Write(const std::wstring& path, const std::string& bytes) {
    const std::wstring full = m_root + path;
    for (size_t at = full.find(L'\\', m_root.size() + 1); at != std::wstring::npos;
         at = full.find(L'\\', at + 1))
        CreateDirectoryW(full.substr(0, at).c_str(), nullptr);
    HANDLE file = CreateFileW(full.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, file);
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    m_time += 10'000'000;
    const FILETIME time = {static_cast<DWORD>(m_time), static_cast<DWORD>(m_time >> 32)};
    SetFileTime(file, nullptr, nullptr, &time);
    CloseHandle(file);
    ASSERT_EQ(bytes.size(), written);
}

std::string Bmp(int width, int height, uint32_t colour) {
    const uint32_t size = static_cast<uint32_t>(width * height * 4);
    std::string file = "BM" + Little(54 + size) + Little(0) + Little(54);
    file += Little(40) + Little(static_cast<uint32_t>(width)) + Little(static_cast<uint32_t>(height)) +
            Little(1, 2) + Little(32, 2) + Little(0) + Little(size) + std::string(16, '\0');
    for (int i = 0; i < width * height; ++i) file += Little(colour);
    return file;
}

}  // namespace viewer
