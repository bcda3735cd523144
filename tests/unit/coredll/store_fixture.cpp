#include "store_fixture.h"

#include <filesystem>
#include <vector>

namespace {

std::wstring Value(const wchar_t* name) {
    wchar_t value[MAX_PATH] = L"";
    GetEnvironmentVariableW(name, value, MAX_PATH);
    return value;
}

}  // namespace

StoreTest::StoreTest() {
    m_root = std::filesystem::temp_directory_path() / (L"store" + std::to_wstring(GetCurrentProcessId()));
    SetEnvironmentVariableW(L"HANDHELD_ROOT", m_root.c_str());
    SetEnvironmentVariableW(L"HANDHELD_STORE_KB", L"100");
    std::filesystem::create_directories(m_root + L"\\Windows");
    std::filesystem::create_directories(m_root + L"\\My Documents");
    // The last test's files went away behind the stand-in's back: any change through it makes it look again.
    DeleteFileW(L"\\none");
}

StoreTest::~StoreTest() {
    std::error_code ignored;
    std::filesystem::remove_all(m_root, ignored);
}

void StoreTest::Write(const wchar_t* path, size_t bytes) {
    HANDLE file = CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE) << GetLastError();
    const std::vector<char> content(bytes, 'x');
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(file, content.data(), static_cast<DWORD>(bytes), &written, nullptr));
    EXPECT_EQ(written, bytes);
    EXPECT_TRUE(CloseHandle(file));
}

Setting::Setting(const wchar_t* name, const std::wstring& value) : m_name(name), m_before(Value(name)) {
    SetEnvironmentVariableW(name, value.c_str());
}

Setting::~Setting() {
    SetEnvironmentVariableW(m_name, m_before.empty() ? nullptr : m_before.c_str());
}
