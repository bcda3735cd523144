#include <filesystem>
#include <fstream>
#include <vector>

#include "store_fixture.h"

namespace {

constexpr uint64_t kTotal = 100 * 1024;

uint64_t FreeBytes() {
    ULARGE_INTEGER available = {};
    EXPECT_TRUE(GetDiskFreeSpaceExW(L"\\My Documents\\", &available, nullptr, nullptr)) << GetLastError();
    return available.QuadPart;
}

}  // namespace

TEST_F(StoreTest, FreeSpaceIsTheStoreLessItsFiles) {
    EXPECT_EQ(FreeBytes(), kTotal);
    Write(L"\\a", 1000);
    Write(L"\\My Documents\\b", 2345);
    ULARGE_INTEGER available, total, free;
    ASSERT_TRUE(GetDiskFreeSpaceExW(nullptr, &available, &total, &free));
    EXPECT_EQ(total.QuadPart, kTotal);
    EXPECT_EQ(free.QuadPart, kTotal - 3345);
    EXPECT_EQ(available.QuadPart, kTotal - 3345);
    DeleteFileW(L"\\a");
    EXPECT_EQ(FreeBytes(), kTotal - 2345);
    Write(L"\\My Documents\\b", 1);
    EXPECT_EQ(FreeBytes(), kTotal - 1);
}

TEST_F(StoreTest, OtherProgramsFilesShowSoon) {
    EXPECT_EQ(FreeBytes(), kTotal);
    std::ofstream(std::filesystem::path(OnDesktop(L"\\other"))) << "12345";
    const DWORD start = GetTickCount();
    while (FreeBytes() == kTotal && GetTickCount() - start < 5000) Sleep(10);
    EXPECT_EQ(FreeBytes(), kTotal - 5);
}

TEST_F(StoreTest, MoreThanTheStoreLeavesNothingFree) {
    Write(L"\\a", 2000);
    const Setting small(L"HANDHELD_STORE_KB", L"1");
    EXPECT_EQ(FreeBytes(), 0u);
}

TEST_F(StoreTest, UnreadableStoreFails) {
    Write(L"\\file", 10);
    const Setting root(L"HANDHELD_ROOT", OnDesktop(L"\\file"));
    ULARGE_INTEGER available;
    EXPECT_FALSE(GetDiskFreeSpaceExW(L"\\My Documents\\", &available, nullptr, nullptr));
    EXPECT_FALSE(GetDiskFreeSpaceExW(L"\\", &available, nullptr, nullptr));
}

TEST_F(StoreTest, FilesHaveNoFreeSpace) {
    Write(L"\\file", 10);
    EXPECT_FALSE(GetDiskFreeSpaceExW(L"\\file", nullptr, nullptr, nullptr));
    EXPECT_FALSE(GetDiskFreeSpaceExW(L"\\none", nullptr, nullptr, nullptr));
}

TEST_F(StoreTest, WritingStopsAtTheEndOfTheStore) {
    Write(L"\\most", kTotal - 100);
    HANDLE file = CreateFileW(L"\\last", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    const std::vector<char> content(150, 'y');
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(file, content.data(), 60, &written, nullptr));
    EXPECT_EQ(FreeBytes(), 40u);
    EXPECT_FALSE(WriteFile(file, content.data(), 150, &written, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DISK_FULL));
    EXPECT_EQ(written, 40u);
    EXPECT_FALSE(WriteFile(file, content.data(), 1, &written, nullptr));
    EXPECT_EQ(written, 0u);
    // What is already there may be written over.
    SetFilePointer(file, 10, nullptr, FILE_BEGIN);
    EXPECT_TRUE(WriteFile(file, content.data(), 50, &written, nullptr));
    EXPECT_EQ(written, 50u);
    SetFilePointer(file, 101, nullptr, FILE_BEGIN);
    EXPECT_FALSE(SetEndOfFile(file));
    EXPECT_EQ(GetFileSize(file, nullptr), 100u);
    CloseHandle(file);
    EXPECT_EQ(FreeBytes(), 0u);
    EXPECT_FALSE(CopyFileW(L"\\last", L"\\copy", TRUE));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_DISK_FULL));
}

// A recording writes frame by frame while the readout asks for the room left.
TEST_F(StoreTest, OpenFilesAreCounted) {
    HANDLE file = CreateFileW(L"\\movie", GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    const std::vector<char> frame(512, 'f');
    for (int frames = 1; frames <= 20; ++frames) {
        DWORD written;
        WriteFile(file, frame.data(), 512, &written, nullptr);
        EXPECT_EQ(FreeBytes(), kTotal - 512u * frames);
    }
    Sleep(250);  // past the time that a result is kept
    EXPECT_EQ(FreeBytes(), kTotal - 512u * 20);
    CloseHandle(file);
    EXPECT_EQ(FreeBytes(), kTotal - 512u * 20);
}
