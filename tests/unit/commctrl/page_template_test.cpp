#include <gtest/gtest.h>

#include <cstring>

#include "handheld/commctrl/page_template.h"

using handheld::ReadPageTemplate;

namespace {

// style, extended style, controls, place; menu, class, caption; font
constexpr WORD kPlain[] = {0x00C4, 0x90C8, 0, 0, 3, 0, 0, 160, 140, 0, 0, 'F', 'i', 'l', 'e', 0, 8, 'T', 0};
// version, mark, help, extended style, style, controls, place; menu by number, class by name, caption
constexpr WORD kExtended[] = {1,   0xFFFF, 0,      0,  0,   0,   0x00C4, 0x90C8, 3,   0, 0,
                              160, 140,    0xFFFF, 77, 'A', 'b', 0,      'S',    'i', 0};

DWORD DoubleWord(const std::vector<BYTE>& bytes, size_t at) {
    DWORD word;
    std::memcpy(&word, &bytes[at], sizeof word);
    return word;
}

constexpr DWORD kChildStyle = WS_CHILD | DS_CONTROL | DS_SETFONT | 4;  // what was there and is no frame stays

}  // namespace

TEST(PageTemplate, PlainFormBecomesAChild) {
    const auto page = ReadPageTemplate(kPlain, sizeof kPlain);
    ASSERT_TRUE(page);
    EXPECT_EQ(L"File", page->caption);
    ASSERT_EQ(sizeof kPlain, page->bytes.size());
    EXPECT_EQ(kChildStyle, DoubleWord(page->bytes, 0));
    EXPECT_EQ(0, std::memcmp(&page->bytes[4], reinterpret_cast<const BYTE*>(kPlain) + 4, sizeof kPlain - 4));
}

TEST(PageTemplate, ExtendedFormBecomesAChild) {
    const auto page = ReadPageTemplate(kExtended, sizeof kExtended);
    ASSERT_TRUE(page);
    EXPECT_EQ(L"Si", page->caption);
    EXPECT_EQ(kChildStyle, DoubleWord(page->bytes, 12));
    EXPECT_EQ(0xFFFF0001u, DoubleWord(page->bytes, 0));
}

TEST(PageTemplate, EveryTruncationUpToTheCaptionIsRefused) {
    for (size_t size = 0; size < 16 * sizeof(WORD); ++size)
        EXPECT_FALSE(ReadPageTemplate(kPlain, size)) << size;
    EXPECT_TRUE(ReadPageTemplate(kPlain, 16 * sizeof(WORD)));
    for (size_t size = 0; size < sizeof kExtended; ++size)
        EXPECT_FALSE(ReadPageTemplate(kExtended, size)) << size;
}
