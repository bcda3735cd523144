#include "handheld/companion/language.h"

#include <gtest/gtest.h>

#include <string>

namespace handheld {
namespace {

std::wstring TagOf(uint32_t lcid) {
    return LanguageTag(LanguageOf(lcid));
}

TEST(CompanionLanguage, FollowsThePrimaryLanguage) {
    EXPECT_EQ(L"", TagOf(1033));
    EXPECT_EQ(L"de", TagOf(1031));
    EXPECT_EQ(L"de", TagOf(2055));
    EXPECT_EQ(L"fr", TagOf(1036));
    EXPECT_EQ(L"it", TagOf(1040));
    EXPECT_EQ(L"pt", TagOf(1046));
    EXPECT_EQ(L"es", TagOf(3082));
    EXPECT_EQ(L"es", TagOf(1034));
    EXPECT_EQ(L"ko", TagOf(1042));
}

TEST(CompanionLanguage, TellsTwoKindsOfChineseApart) {
    EXPECT_EQ(L"zh-hans", TagOf(2052));
    EXPECT_EQ(L"zh-hant", TagOf(1028));
    EXPECT_EQ(L"", TagOf(0x0C04));
}

TEST(CompanionLanguage, OthersAreEnglish) {
    for (uint32_t lcid : {0u, 1041u, 1049u, 0xFFFFFFFFu}) EXPECT_EQ(L"", TagOf(lcid)) << lcid;
}

}  // namespace
}  // namespace handheld
