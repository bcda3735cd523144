#include <filesystem>
#include <fstream>
#include <iterator>

#include "store_fixture.h"

namespace {

// Exit code of a program, or the negated error when it does not start.
int StartAndWait(const wchar_t* program, const wchar_t* arguments) {
    PROCESS_INFORMATION made = {};
    if (!CreateProcessW(program, const_cast<wchar_t*>(arguments), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, nullptr, &made))
        return -static_cast<int>(GetLastError());
    DWORD code = 0;
    EXPECT_EQ(WaitForSingleObject(made.hProcess, 20000), static_cast<DWORD>(WAIT_OBJECT_0));
    GetExitCodeProcess(made.hProcess, &code);
    CloseHandle(made.hThread);
    CloseHandle(made.hProcess);
    return static_cast<int>(code);
}

std::wstring BesideTheProgram(const wchar_t* name) {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path() / name;
}

class ProgramTest : public StoreTest {
  protected:
    std::wstring Kept() const {
        std::ifstream file(std::filesystem::path(OnDesktop(L"\\child.txt")), std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(file)), {});
        std::wstring text(bytes.size() / 2, L' ');
        memcpy(text.data(), bytes.data(), bytes.size());
        return text;
    }
};

}  // namespace

TEST_F(ProgramTest, WindowsFolderFallsBackToTheProgramsOwn) {
    EXPECT_EQ(StartAndWait(L"\\windows\\STANDIN_CHILD.exe", L"\\My Documents\\snap 1.jpg"), 42);
    EXPECT_EQ(Kept(), L"\\My Documents\\snap 1.jpg");
}

TEST_F(ProgramTest, BareNameIsLookedForInWindows) {
    EXPECT_EQ(StartAndWait(L"standin_child.exe", L"file:Help Page.htm"), 42);
    EXPECT_EQ(Kept(), L"file:Help Page.htm");
}

TEST_F(ProgramTest, NoArguments) {
    EXPECT_EQ(StartAndWait(L"standin_child.exe", nullptr), 42);
    EXPECT_EQ(Kept(), L"");
}

TEST_F(ProgramTest, StoredProgramComesFirst) {
    const Setting roomy(L"HANDHELD_STORE_KB", L"65536");
    ASSERT_TRUE(CopyFileW(BesideTheProgram(L"standin_child.exe").c_str(),
                          OnDesktop(L"\\Windows\\stored.exe").c_str(), TRUE));
    ASSERT_TRUE(CopyFileW(BesideTheProgram(L"coredll.dll").c_str(),
                          OnDesktop(L"\\Windows\\coredll.dll").c_str(), TRUE));
    EXPECT_EQ(StartAndWait(L"\\windows\\stored.exe", L"a"), 42);
    EXPECT_EQ(StartAndWait(L"stored.exe", L"b"), 42);
    EXPECT_EQ(Kept(), L"b");
}

TEST_F(ProgramTest, MissingProgramFails) {
    EXPECT_EQ(StartAndWait(L"\\windows\\none.exe", nullptr), -ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(StartAndWait(L"\\standin_child.exe", nullptr),
              -ERROR_FILE_NOT_FOUND);  // only \Windows falls back
    EXPECT_EQ(StartAndWait(L"notepad.exe", nullptr),
              -ERROR_FILE_NOT_FOUND);  // the desktop's own are not on the handheld
    EXPECT_EQ(StartAndWait(nullptr, L"standin_child.exe"), -ERROR_INVALID_PARAMETER);
}

TEST_F(ProgramTest, LibrariesByHandheldPath) {
    HMODULE library = LoadLibraryW(L"\\Windows\\FAK.dll");
    ASSERT_TRUE(library);
    EXPECT_TRUE(GetProcAddressW(library, L"FAK_Init"));
    EXPECT_FALSE(GetProcAddressW(library, L"none"));
    EXPECT_FALSE(GetProcAddressW(library, L"F\u00C4K"));
    FreeLibrary(library);
    EXPECT_FALSE(LoadLibraryW(L"\\Windows\\none.dll"));
    EXPECT_FALSE(LoadLibraryW(L"\\FAK.dll"));
    EXPECT_FALSE(LoadLibraryW(nullptr));
}

TEST_F(ProgramTest, StoredLibraryComesFirst) {
    CopyFileW(BesideTheProgram(L"FAK.dll").c_str(), OnDesktop(L"\\Windows\\SHADOW.dll").c_str(), TRUE);
    HMODULE library = LoadLibraryW(L"\\windows\\shadow.DLL");
    ASSERT_TRUE(library);
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(library, path, MAX_PATH);
    EXPECT_TRUE(std::filesystem::equivalent(path, OnDesktop(L"\\Windows\\SHADOW.dll")));
    FreeLibrary(library);
}

TEST_F(ProgramTest, CoreLibraryIsThisOne) {
    HMODULE core = LoadLibraryW(L"coredll.dll");
    ASSERT_EQ(core, GetModuleHandleW(L"coredll.dll"));
    using Release = BOOL WINAPI(UINT, UINT);
    auto* release =
        reinterpret_cast<Release*>(reinterpret_cast<void*>(GetProcAddressW(core, L"UnregisterFunc1")));
    ASSERT_TRUE(release);
    EXPECT_TRUE(release(MOD_WIN, 0xC1));
    EXPECT_TRUE(GetProcAddressW(core, L"BitBlt"));  // a forwarder
    FreeLibrary(core);
    EXPECT_TRUE(GetModuleHandleW(L"coredll.dll"));
}

TEST_F(ProgramTest, ProcessEndsWithItsMainThread) {
    EXPECT_EQ(StartAndWait(L"standin_child.exe", L"exit thread"), 23);
    EXPECT_EQ(StartAndWait(L"standin_child.exe", L"exit other thread"), 35);
}
