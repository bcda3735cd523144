#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

namespace {

std::wstring versionText(const wchar_t* name) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::vector<char> block(GetFileVersionInfoSizeW(path, nullptr));
    void* value = nullptr;
    UINT length = 0;
    if (block.empty() || !GetFileVersionInfoW(path, 0, static_cast<DWORD>(block.size()), block.data()))
        return L"";
    const std::wstring key = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
    return VerQueryValueW(block.data(), key.c_str(), &value, &length) ? static_cast<const wchar_t*>(value)
                                                                      : L"";
}

}  // namespace

TEST(VersionResource, NamesTheProduct) {
    EXPECT_EQ(L"Lumetta Camera", versionText(L"ProductName"));
    EXPECT_EQ(L"zelcamera.exe", versionText(L"OriginalFilename"));
    EXPECT_EQ(L"1.0.0", versionText(L"FileVersion"));
}
