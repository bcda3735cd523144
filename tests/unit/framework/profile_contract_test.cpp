// What the registry's profile and the fake in memory have in common; linked with one, then with the other.
#include "profile_storage.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

class ProfileContract : public ::testing::Test {
  protected:
    ProfileContract() { ClearStorage(profile); }
    ~ProfileContract() override { ClearStorage(profile); }

    const Profile profile{L"\\ZelFrameworkTest"};
};

TEST_F(ProfileContract, NothingStoredGivesTheDefaults) {
    EXPECT_EQ(7, ReadProfileInt(profile, L"Setting", L"awb", 7));
    EXPECT_EQ(-1, ReadProfileInt(profile, L"Setting", L"awb", -1));
    EXPECT_EQ(L"snap", ReadProfileText(profile, L"Setting", L"filename prefix", L"snap"));
}

TEST_F(ProfileContract, WhatIsWrittenIsRead) {
    for (const int value : {0, 1, -1, INT_MAX, INT_MIN}) {
        EXPECT_TRUE(WriteProfileInt(profile, L"Setting", L"ae metering", value));
        EXPECT_EQ(value, ReadProfileInt(profile, L"Setting", L"ae metering", 5));
    }
    for (const wchar_t* text : {L"\\My Documents\\My Pictures\\", L"", L"\u00fc\ud55c"}) {
        EXPECT_TRUE(WriteProfileText(profile, L"Setting", L"defaultfolder", text));
        EXPECT_EQ(text, ReadProfileText(profile, L"Setting", L"defaultfolder", L"other"));
    }
}

TEST_F(ProfileContract, SectionsAndNamesAreApart) {
    WriteProfileInt(profile, L"Setting", L"awb", 1);
    WriteProfileInt(profile, L"Other", L"awb", 2);
    WriteProfileInt(profile, L"Setting", L"color", 3);
    EXPECT_EQ(1, ReadProfileInt(profile, L"Setting", L"awb", 0));
    EXPECT_EQ(2, ReadProfileInt(profile, L"Other", L"awb", 0));
    EXPECT_EQ(3, ReadProfileInt(profile, L"Setting", L"color", 0));
}

TEST_F(ProfileContract, NamesDoNotDistinguishCase) {
    WriteProfileInt(profile, L"Setting", L"camera sound", 3);
    EXPECT_EQ(3, ReadProfileInt(profile, L"SETTING", L"Camera Sound", 0));
}

TEST_F(ProfileContract, LeadingBackslashOfTheKeyIsLeftOut) {
    const Profile plain{L"ZelFrameworkTest"};
    WriteProfileInt(profile, L"Setting", L"jpgno", 42);
    EXPECT_EQ(42, ReadProfileInt(plain, L"Setting", L"jpgno", 1));
    EXPECT_EQ(L"\\ZelFrameworkTest", profile.key);
}

TEST_F(ProfileContract, WithoutAKeyNothingIsStored) {
    for (const wchar_t* key : {L"", L"\\", L"\\\\"}) {
        const Profile none{key};
        EXPECT_FALSE(WriteProfileInt(none, L"Setting", L"awb", 1));
        EXPECT_FALSE(WriteProfileText(none, L"Setting", L"awb", L"1"));
        EXPECT_EQ(9, ReadProfileInt(none, L"Setting", L"awb", 9));
        EXPECT_EQ(L"x", ReadProfileText(none, L"Setting", L"awb", L"x"));
    }
}

TEST_F(ProfileContract, ValueOfAnotherKindGivesTheDefault) {
    WriteProfileText(profile, L"Setting", L"jpgno", L"12");
    EXPECT_EQ(5, ReadProfileInt(profile, L"Setting", L"jpgno", 5));
    WriteProfileInt(profile, L"Setting", L"filename prefix", 12);
    EXPECT_EQ(L"snap", ReadProfileText(profile, L"Setting", L"filename prefix", L"snap"));
}

TEST_F(ProfileContract, WritingReplacesAValueOfAnotherKind) {
    WriteProfileText(profile, L"Setting", L"jpgno", L"12");
    WriteProfileInt(profile, L"Setting", L"jpgno", 13);
    EXPECT_EQ(13, ReadProfileInt(profile, L"Setting", L"jpgno", 5));
}

TEST_F(ProfileContract, LongestTextIsKeptAndLongerIsRefused) {
    const std::wstring longest(kLongestProfileText, L'x');
    EXPECT_TRUE(WriteProfileText(profile, L"Setting", L"text", longest.c_str()));
    EXPECT_EQ(longest, ReadProfileText(profile, L"Setting", L"text", L""));
    EXPECT_FALSE(WriteProfileText(profile, L"Setting", L"text", (longest + L"x").c_str()));
    EXPECT_EQ(longest, ReadProfileText(profile, L"Setting", L"text", L""));
}

}  // namespace
