#include <set>

#include "store_fixture.h"

namespace {

std::set<std::wstring> Names(const wchar_t* pattern) {
    std::set<std::wstring> names;
    CeFindData data;
    HANDLE search = CeFindFirstFile(pattern, data);
    if (search == INVALID_HANDLE_VALUE) return names;
    do names.insert(data.fileName);
    while (CeFindNextFile(search, data));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NO_MORE_FILES));
    EXPECT_TRUE(FindClose(search));
    return names;
}

}  // namespace

TEST_F(StoreTest, SearchFillsTheHandheldsRecord) {
    Write(L"\\My Documents\\snap0001.jpg", 77);
    // Nothing behind the 560 bytes of the record is touched.
    struct {
        CeFindData data;
        uint32_t guard[16];
    } found;
    for (uint32_t& word : found.guard) word = 0xA5A5A5A5;
    HANDLE search = CeFindFirstFile(L"\\My Documents\\snap*.jpg", found.data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    EXPECT_STREQ(found.data.fileName, L"snap0001.jpg");
    EXPECT_EQ(found.data.fileSizeLow, 77u);
    EXPECT_EQ(found.data.fileSizeHigh, 0u);
    EXPECT_FALSE(found.data.attributes & FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_NE(found.data.lastWriteTime.dwHighDateTime, 0u);
    for (uint32_t word : found.guard) EXPECT_EQ(word, 0xA5A5A5A5);
    EXPECT_FALSE(CeFindNextFile(search, found.data));
    EXPECT_TRUE(FindClose(search));
}

TEST_F(StoreTest, SearchLeavesOutSelfAndParent) {
    CreateDirectoryW(L"\\My Documents\\Empty", nullptr);
    CreateDirectoryW(L"\\My Documents\\Sub", nullptr);
    Write(L"\\My Documents\\Sub\\f", 1);
    EXPECT_EQ(Names(L"\\My Documents\\*.*"), (std::set<std::wstring>{L"Empty", L"Sub"}));
    EXPECT_EQ(Names(L"\\*.*"), (std::set<std::wstring>{L"My Documents", L"Windows"}));
    EXPECT_EQ(Names(L"\\My Documents\\Empty\\*.*"), std::set<std::wstring>{});
}

TEST_F(StoreTest, FolderIsFoundByItsName) {
    CeFindData data;
    HANDLE search = CeFindFirstFile(L"\\My Documents", data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(data.attributes & FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_STREQ(data.fileName, L"My Documents");
    FindClose(search);
    EXPECT_EQ(CeFindFirstFile(L"\\My Documents\\My Pictures", data), INVALID_HANDLE_VALUE);
}

// Start-up closes its search with the general call, even when it found nothing.
TEST_F(StoreTest, SearchIsAnOrdinaryHandle) {
    CeFindData data;
    HANDLE search = CeFindFirstFile(L"\\*", data);
    EXPECT_TRUE(CloseHandle(search));
    EXPECT_FALSE(CeFindNextFile(search, data));
    EXPECT_FALSE(FindClose(search));
    EXPECT_FALSE(FindClose(INVALID_HANDLE_VALUE));
    EXPECT_FALSE(CeFindNextFile(INVALID_HANDLE_VALUE, data));
}

TEST_F(StoreTest, ThousandClosedSearchesLeaveNoHandle) {
    DWORD before = 0, after = 0;
    GetProcessHandleCount(GetCurrentProcess(), &before);
    for (int i = 0; i < 1000; ++i) {
        CeFindData data;
        CloseHandle(CeFindFirstFile(L"\\*", data));
    }
    GetProcessHandleCount(GetCurrentProcess(), &after);
    EXPECT_LT(after, before + 20);
}
