#include "handheld/peghelp/page_names.h"

#include <gtest/gtest.h>

namespace help {
namespace {

using Names = std::vector<std::wstring>;

TEST(PageNames, ArgumentWithAndWithoutScheme) {
    EXPECT_EQ(L"Camera Help.htm", PageArgument(L"file:Camera Help.htm"));
    EXPECT_EQ(L"Camera Help.htm", PageArgument(L" FILE:\"Camera Help.htm\" "));
    EXPECT_EQ(L"Camera Help.htm", PageArgument(L"\"file:Camera Help.htm\""));
    EXPECT_EQ(L"Camera Help.htm", PageArgument(L"Camera Help.htm"));
    EXPECT_EQ(L"", PageArgument(L"file:"));
    EXPECT_EQ(L"fil", PageArgument(L"fil"));
}

TEST(PageNames, TranslationComesBeforeThePage) {
    EXPECT_EQ((Names{L"a b.htm"}), PageNames(L"a b.htm", handheld::Language::english));
    EXPECT_EQ((Names{L"a b.de.htm", L"a b.htm"}), PageNames(L"a b.htm", handheld::Language::german));
    EXPECT_EQ((Names{L"\\x.y\\a.ko", L"\\x.y\\a"}), PageNames(L"\\x.y\\a", handheld::Language::korean));
}

}  // namespace
}  // namespace help
