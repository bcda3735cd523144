#include <gtest/gtest.h>

#include "handheld/aygshell/menu_template.h"

using handheld::ReadMenuTemplate;

namespace {

constexpr uint16_t kTwoButtons[] = {348,    2,                      //
                                    0xFFFE, 10, 4, 0x18, 11, 0, 0,  //
                                    0xFFFE, 20, 0, 0x10, 21, 0, handheld::kNoPopup};

}  // namespace

TEST(MenuTemplate, ReadsButtons) {
    const auto menu = ReadMenuTemplate(kTwoButtons, sizeof kTwoButtons);
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->menu, 348);
    ASSERT_EQ(menu->buttons.size(), 2u);
    EXPECT_EQ(menu->buttons[0].command, 10);
    EXPECT_EQ(menu->buttons[0].state, 4);
    EXPECT_EQ(menu->buttons[0].style, 0x18);
    EXPECT_EQ(menu->buttons[0].caption, 11);
    EXPECT_EQ(menu->buttons[0].popup, 0);
    EXPECT_EQ(menu->buttons[1].caption, 21);
    EXPECT_EQ(menu->buttons[1].popup, handheld::kNoPopup);
}

TEST(MenuTemplate, PaddingBehindIsIgnored) {
    EXPECT_TRUE(ReadMenuTemplate(kTwoButtons, sizeof kTwoButtons));
    constexpr uint16_t kNone[] = {5, 0, 0, 0};
    const auto menu = ReadMenuTemplate(kNone, sizeof kNone);
    ASSERT_TRUE(menu);
    EXPECT_TRUE(menu->buttons.empty());
}

TEST(MenuTemplate, EveryTruncationIsRefused) {
    for (size_t bytes = 0; bytes < sizeof kTwoButtons; ++bytes)
        EXPECT_FALSE(ReadMenuTemplate(kTwoButtons, bytes)) << bytes;
}
