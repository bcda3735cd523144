#include <cstdio>
#include <filesystem>

#include "store_fixture.h"

namespace fs = std::filesystem;

TEST_F(StoreTest, PathsLieBelowTheRoot) {
    Write(L"\\My Documents\\a.txt", 5);
    EXPECT_EQ(fs::file_size(OnDesktop(L"\\My Documents\\a.txt")), 5u);
    EXPECT_TRUE(Exists(L"\\My Documents\\a.txt"));
    EXPECT_FALSE(Exists(L"\\My Documents\\b.txt"));
    EXPECT_TRUE(DeleteFileW(L"\\My Documents\\a.txt"));
    EXPECT_FALSE(fs::exists(OnDesktop(L"\\My Documents\\a.txt")));
}

TEST_F(StoreTest, NamesMatchInAnyCase) {
    Write(L"\\My Documents\\Snap0001.JPG", 3);
    EXPECT_TRUE(Exists(L"\\my documents\\SNAP0001.jpg"));
    EXPECT_TRUE(DeleteFileW(L"\\MY DOCUMENTS\\snap0001.jpg"));
    EXPECT_FALSE(Exists(L"\\My Documents\\Snap0001.JPG"));
}

TEST_F(StoreTest, ParentStepsStayInside) {
    Write(L"\\..\\..\\..\\up.txt", 1);
    EXPECT_TRUE(fs::exists(OnDesktop(L"\\up.txt")));
    EXPECT_FALSE(fs::exists(OnDesktop(L"\\..\\up.txt")));
    EXPECT_TRUE(Exists(L"\\My Documents\\..\\up.txt"));
    EXPECT_TRUE(Exists(L"\\./My Documents/../up.txt"));
}

TEST_F(StoreTest, NamesThatWouldLeaveTheStoreFail) {
    for (const wchar_t* name :
         {L"\\C:\\x.txt", L"\\a.txt:stream", L"\\NUL", L"\\My Documents\\com1.txt", L"\\x\\aux .y"}) {
        HANDLE file = CreateFileW(name, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        EXPECT_EQ(file, INVALID_HANDLE_VALUE) << name;
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_NAME)) << name;
    }
    EXPECT_EQ(CreateFileW(nullptr, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr),
              INVALID_HANDLE_VALUE);
    EXPECT_FALSE(DeleteFileW(nullptr));
}

TEST_F(StoreTest, OtherPathsAreTheDesktops) {
    const std::wstring path = OnDesktop(L"\\plain.txt");
    Write(path.c_str(), 2);
    EXPECT_TRUE(Exists(L"\\plain.txt"));
}

TEST_F(StoreTest, Folders) {
    EXPECT_TRUE(CreateDirectoryW(L"\\My Documents\\My Pictures", nullptr));
    EXPECT_FALSE(CreateDirectoryW(L"\\My Documents\\My Pictures", nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ALREADY_EXISTS));
    Write(L"\\My Documents\\My Pictures\\a", 1);
    EXPECT_FALSE(RemoveDirectoryW(L"\\My Documents\\My Pictures"));
    EXPECT_TRUE(DeleteFileW(L"\\My Documents\\My Pictures\\a"));
    EXPECT_TRUE(RemoveDirectoryW(L"\\My Documents\\My Pictures\\"));
    EXPECT_FALSE(fs::exists(OnDesktop(L"\\My Documents\\My Pictures")));
}

TEST_F(StoreTest, MoveCopyAndAttributes) {
    Write(L"\\a", 4);
    EXPECT_TRUE(CopyFileW(L"\\a", L"\\b", TRUE));
    EXPECT_FALSE(CopyFileW(L"\\a", L"\\b", TRUE));
    EXPECT_TRUE(MoveFileW(L"\\b", L"\\My Documents\\c"));
    EXPECT_FALSE(Exists(L"\\b"));
    EXPECT_EQ(fs::file_size(OnDesktop(L"\\My Documents\\c")), 4u);
    EXPECT_TRUE(SetFileAttributesW(L"\\a", FILE_ATTRIBUTE_READONLY));
    EXPECT_TRUE(GetFileAttributesW(L"\\a") & FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(SetFileAttributesW(L"\\a", FILE_ATTRIBUTE_NORMAL));
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    EXPECT_TRUE(GetFileAttributesExW(L"\\a", GetFileExInfoStandard, &data));
    EXPECT_EQ(data.nFileSizeLow, 4u);
}

TEST_F(StoreTest, StreamsAreMapped) {
    FILE* stream = _wfopen(L"\\My Documents\\s.bin", L"wb");
    ASSERT_TRUE(stream);
    std::fputs("hello", stream);
    std::fclose(stream);
    EXPECT_EQ(fs::file_size(OnDesktop(L"\\My Documents\\s.bin")), 5u);
    stream = std::fopen("\\My Documents\\s.bin", "rb");
    ASSERT_TRUE(stream);
    EXPECT_EQ(std::fgetc(stream), 'h');
    std::fclose(stream);
    EXPECT_FALSE(_wfopen(L"\\My Documents\\none", L"rb"));
}

TEST_F(StoreTest, InvalidHandlesAreRefused) {
    EXPECT_FALSE(CloseHandle(INVALID_HANDLE_VALUE));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
    EXPECT_FALSE(CloseHandle(nullptr));
}

// The store of a program that has never run: made with its parents and the handheld's folders, where a Linux
// path says.
TEST_F(StoreTest, FirstUseMakesTheStore) {
    const Setting root(L"HANDHELD_ROOT", m_root + L"\\new\\store");
    PROCESS_INFORMATION made = {};
    ASSERT_TRUE(CreateProcessW(L"standin_child.exe", nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               nullptr, &made));
    EXPECT_EQ(WaitForSingleObject(made.hProcess, 20000), static_cast<DWORD>(WAIT_OBJECT_0));
    CloseHandle(made.hThread);
    CloseHandle(made.hProcess);
    EXPECT_TRUE(fs::is_directory(OnDesktop(L"\\new\\store\\Windows")));
    EXPECT_TRUE(fs::is_directory(OnDesktop(L"\\new\\store\\My Documents")));
    EXPECT_TRUE(fs::exists(OnDesktop(L"\\new\\store\\child.txt")));
}
