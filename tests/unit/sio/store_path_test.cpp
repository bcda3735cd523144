#include "handheld/common/store_path.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "handheld/common/settings.h"
#include "handheld/common/store_space.h"

using namespace handheld;

namespace {

struct Variable {
    Variable(const wchar_t* name, const wchar_t* value) : m_name(name) {
        SetEnvironmentVariableW(name, value);
    }
    ~Variable() { SetEnvironmentVariableW(m_name, nullptr); }
    const wchar_t* m_name;
};

}  // namespace

TEST(StorePath, OnlyASingleBackslashLeadsIntoTheStore) {
    EXPECT_TRUE(IsStorePath(L"\\"));
    EXPECT_TRUE(IsStorePath(L"\\My Documents\\a.jpg"));
    EXPECT_FALSE(IsStorePath(L""));
    EXPECT_FALSE(IsStorePath(L"\\\\server\\share"));
    EXPECT_FALSE(IsStorePath(L"C:\\a.jpg"));
    EXPECT_FALSE(IsStorePath(L"a.jpg"));
}

TEST(StorePath, NormalisesAndNeverLeavesTheRoot) {
    EXPECT_EQ(L"\\a\\b c", NormaliseStorePath(L"\\a\\\\.\\b c\\").value());
    EXPECT_EQ(L"\\b", NormaliseStorePath(L"\\a\\..\\..\\..\\b").value());
    EXPECT_EQ(L"\\b", NormaliseStorePath(L"\\a/../../b").value());
    EXPECT_EQ(L"", NormaliseStorePath(L"\\").value());
    EXPECT_EQ(L"\\a\\*.jpg", NormaliseStorePath(L"\\a\\*.jpg").value());
    EXPECT_FALSE(NormaliseStorePath(L"\\a\\C:\\b"));
    EXPECT_FALSE(NormaliseStorePath(L"\\a.jpg:hidden"));
}

TEST(StorePath, RootComesFromTheEnvironment) {
    const Variable root(L"HANDHELD_ROOT", L"C:\\some\\store\\");
    EXPECT_EQ(L"C:\\some\\store", StoreRoot());
    EXPECT_EQ(L"C:\\some\\store\\a.jpg", StoreToDesktop(L"\\a.jpg").value());
    EXPECT_FALSE(StoreToDesktop(L"C:\\a.jpg"));
}

TEST(StorePath, RootHasADefaultOfTheUsersOwn) {
    const std::wstring root = StoreRoot();
    const std::wstring ending = L"\\zel-camera\\store";
    ASSERT_GT(root.size(), ending.size() + 2);
    EXPECT_EQ(ending, root.substr(root.size() - ending.size()));
    EXPECT_EQ(L':', root[1]);
}

TEST(Settings, LinuxPathsWorkUnderWine) {
    if (!GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_dos_file_name"))
        GTEST_SKIP() << "not Wine";
    EXPECT_NE(L'/', FromUnixPath(L"/tmp")[0]);
    EXPECT_NE(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(FromUnixPath(L"/tmp").c_str()));
    const std::wstring missing = FromUnixPath(L"/tmp/no such folder/no such file");
    EXPECT_EQ(L':', missing[1]);
    EXPECT_EQ(std::wstring::npos, missing.find(L'/'));
}

TEST(Settings, NumbersKeepToTheirRange) {
    for (const wchar_t* text : {L"", L"abc", L"12x", L"-3", L"0", L"61", L"99999999999"}) {
        const Variable fps(L"HANDHELD_FPS", text);
        EXPECT_EQ(15u, NumberSetting(L"HANDHELD_FPS", 15, 1, 60)) << text;
    }
    const Variable fps(L"HANDHELD_FPS", L"30");
    EXPECT_EQ(30u, NumberSetting(L"HANDHELD_FPS", 15, 1, 60));
}

TEST(StoreSpace, CountsWhatIsStored) {
    wchar_t temporary[MAX_PATH];
    GetTempPathW(MAX_PATH, temporary);
    const std::wstring folder =
        std::wstring(temporary) + L"zel_space_" + std::to_wstring(GetCurrentProcessId());
    CreateDirectoryW(folder.c_str(), nullptr);
    CreateDirectoryW((folder + L"\\sub").c_str(), nullptr);
    const Variable root(L"HANDHELD_ROOT", folder.c_str());
    const Variable size(L"HANDHELD_STORE_KB", L"2");
    EXPECT_EQ(2048u, StoreTotalBytes());
    EXPECT_EQ(0u, MeasureStoredBytes());
    const std::wstring path = folder + L"\\sub\\a";
    HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    SetFilePointer(file, 1500, nullptr, FILE_BEGIN);
    SetEndOfFile(file);
    CloseHandle(file);
    EXPECT_EQ(1500u, MeasureStoredBytes());
    const Variable notAFolder(L"HANDHELD_ROOT", path.c_str());
    EXPECT_EQ(std::nullopt, MeasureStoredBytes());
    DeleteFileW(path.c_str());
    RemoveDirectoryW((folder + L"\\sub").c_str());
    RemoveDirectoryW(folder.c_str());
}
