#include "handheld/companion/command_line.h"

#include <gtest/gtest.h>

namespace handheld {
namespace {

TEST(CommandLine, PathWithAndWithoutQuotationMarks) {
    EXPECT_EQ(L"\\My Documents\\a b.jpg", PathArgument(L" \\My Documents\\a b.jpg \t"));
    EXPECT_EQ(L"\\My Documents\\a b.jpg", PathArgument(L"\"\\My Documents\\a b.jpg\" more"));
    EXPECT_EQ(L"\\a b.jpg", PathArgument(L"\"\\a b.jpg"));
    EXPECT_EQ(L"", PathArgument(L"  "));
    EXPECT_EQ(L"", PathArgument(L"\""));
    EXPECT_EQ(L"", PathArgument(L""));
}

}  // namespace
}  // namespace handheld
