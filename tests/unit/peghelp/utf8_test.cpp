#include "handheld/peghelp/utf8.h"

#include <gtest/gtest.h>

namespace help {
namespace {

TEST(Utf8, CharactersOfEveryLength) {
    EXPECT_EQ(L"a\u00E4\uD55C", FromUtf8("a\xC3\xA4\xED\x95\x9C"));
    EXPECT_EQ(L"\U0001F4F7", FromUtf8("\xF0\x9F\x93\xB7"));
    EXPECT_EQ(L"", FromUtf8(""));
}

TEST(Utf8, ByteOrderMarkIsLeftOut) {
    EXPECT_EQ(L"a", FromUtf8("\xEF\xBB\xBF"
                             "a"));
}

TEST(Utf8, DamagedBytesBecomeTheReplacementCharacter) {
    EXPECT_EQ(L"\uFFFD", FromUtf8("\xE4"));
    EXPECT_EQ(L"\uFFFDa", FromUtf8("\xC3"
                                   "a"));
    EXPECT_EQ(L"\uFFFD\uFFFD", FromUtf8("\xC0\xAF"));    // a longer form than necessary
    EXPECT_EQ(L"\uFFFD", FromUtf8("\xED\xA0\x80"));      // half a surrogate pair
    EXPECT_EQ(L"\uFFFD", FromUtf8("\xF4\x90\x80\x80"));  // beyond Unicode
    EXPECT_EQ(
        L"a\uFFFD"
        L"b",
        FromUtf8(std::string("a\0b", 3)));
}

}  // namespace
}  // namespace help
