// The fake's own extras: the order of the writes, and the values as a test prepares them.
#include "tests/fakes/profile_fake.h"
#include "profile_storage.h"

#include <gtest/gtest.h>

void ClearStorage(const Profile&) {
    ClearFakeProfile();
}

namespace {

TEST(ProfileFake, TellsTheOrderOfTheWrites) {
    ClearFakeProfile();
    const Profile profile{L"\\Zel"};
    WriteProfileInt(profile, L"Setting", L"b", 1);
    WriteProfileText(profile, L"Setting", L"a", L"x");
    WriteProfileInt(profile, L"Setting", L"b", 2);
    EXPECT_EQ((std::vector<std::wstring>{L"Setting/b", L"Setting/a", L"Setting/b"}), FakeProfileWrites());
    ASSERT_EQ(2u, FakeProfileValues().size());
    EXPECT_EQ(2, std::get<int>(FakeProfileValues()[0].value));
}

TEST(ProfileFake, PreparedOverlongTextGivesTheDefault) {
    ClearFakeProfile();
    FakeProfileValues().push_back({L"Zel", L"Setting", L"text", std::wstring(kLongestProfileText + 1, L'x')});
    EXPECT_EQ(L"snap", ReadProfileText({L"\\Zel"}, L"Setting", L"text", L"snap"));
}

}  // namespace
