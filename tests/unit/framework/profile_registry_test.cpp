// Values that only something else than this program can have put into the registry.
#include "platform/ce.h"
#include "profile_storage.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr const wchar_t* kSectionPath = L"Software\\ZelFrameworkTest\\Setting";

class ProfileRegistry : public ::testing::Test {
  protected:
    ProfileRegistry() { ClearStorage(profile); }
    ~ProfileRegistry() override { ClearStorage(profile); }

    void Store(const wchar_t* name, DWORD type, const void* bytes, std::size_t size) {
        HKEY key = nullptr;
        ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, kSectionPath, 0, nullptr, 0, KEY_WRITE,
                                                 nullptr, &key, nullptr));
        EXPECT_EQ(ERROR_SUCCESS, RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(bytes),
                                                static_cast<DWORD>(size)));
        RegCloseKey(key);
    }

    const Profile profile{L"\\ZelFrameworkTest"};
};

TEST_F(ProfileRegistry, LiesUnderTheUsersSoftware) {
    ASSERT_TRUE(WriteProfileInt(profile, L"Setting", L"avino", 77));
    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CURRENT_USER, kSectionPath, 0, KEY_READ, &key));
    DWORD type = 0;
    DWORD value = 0;
    DWORD size = sizeof value;
    EXPECT_EQ(ERROR_SUCCESS,
              RegQueryValueExW(key, L"avino", nullptr, &type, reinterpret_cast<BYTE*>(&value), &size));
    EXPECT_EQ(static_cast<DWORD>(REG_DWORD), type);
    EXPECT_EQ(77u, value);
    RegCloseKey(key);
}

TEST_F(ProfileRegistry, IntegerOfAnotherSizeGivesTheDefault) {
    const BYTE bytes[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    for (const std::size_t size : {0u, 1u, 2u, 3u, 8u}) {
        Store(L"awb", REG_DWORD, bytes, size);
        EXPECT_EQ(6, ReadProfileInt(profile, L"Setting", L"awb", 6)) << size;
    }
    Store(L"awb", REG_BINARY, bytes, 4);
    EXPECT_EQ(6, ReadProfileInt(profile, L"Setting", L"awb", 6));
}

TEST_F(ProfileRegistry, TextWithoutItsZeroIsReadWhole) {
    Store(L"text", REG_SZ, L"snap", 4 * sizeof(wchar_t));
    EXPECT_EQ(L"snap", ReadProfileText(profile, L"Setting", L"text", L""));
    Store(L"text", REG_SZ, L"snap", 0);
    EXPECT_EQ(L"", ReadProfileText(profile, L"Setting", L"text", L"default"));
}

TEST_F(ProfileRegistry, TextEndsAtItsFirstZero) {
    Store(L"text", REG_SZ, L"sn\0ap", 6 * sizeof(wchar_t));
    EXPECT_EQ(L"sn", ReadProfileText(profile, L"Setting", L"text", L""));
}

TEST_F(ProfileRegistry, OverlongTextGivesTheDefault) {
    const std::vector<wchar_t> text(100'000, L'x');
    Store(L"text", REG_SZ, text.data(),
          (kLongestProfileText + 1) * sizeof(wchar_t));  // too long without a zero
    EXPECT_EQ(L"snap", ReadProfileText(profile, L"Setting", L"text", L"snap"));
    Store(L"text", REG_SZ, text.data(), text.size() * sizeof(wchar_t));
    EXPECT_EQ(L"snap", ReadProfileText(profile, L"Setting", L"text", L"snap"));
}

TEST_F(ProfileRegistry, TextOfAnotherKindGivesTheDefault) {
    for (const DWORD type : {REG_BINARY, REG_EXPAND_SZ, REG_MULTI_SZ}) {
        Store(L"text", type, L"snap", 5 * sizeof(wchar_t));
        EXPECT_EQ(L"default", ReadProfileText(profile, L"Setting", L"text", L"default")) << type;
    }
}

}  // namespace

void ClearStorage(const Profile& profile) {
    const std::wstring key = L"Software\\" + profile.key.substr(1);
    for (const wchar_t* section : {L"\\Setting", L"\\Other", L""}) {
        RegDeleteKeyW(HKEY_CURRENT_USER, (key + section).c_str());
    }
}
