#include "resources/menu_bar.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <cstring>

#include "resources/resource.h"
#include "unit/text/module_strings.h"

namespace {

struct CameraMenuBar {
    MenuBarHeader header;
    MenuBarButton buttons[2];
};

class MenuBar : public testing::TestWithParam<unsigned> {
  protected:
    void SetUp() override {
        const HMODULE module = GetModuleHandleW(nullptr);
        const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(IDM_CAMERA + GetParam()), RT_RCDATA);
        ASSERT_NE(nullptr, found);
        ASSERT_EQ(sizeof m_bar, SizeofResource(module, found));
        std::memcpy(&m_bar, LockResource(LoadResource(module, found)), sizeof m_bar);
    }

    CameraMenuBar m_bar = {};
};

std::wstring popupCaption(HMENU menu, UINT position) {
    wchar_t caption[64] = {};
    GetMenuStringW(menu, position, caption, 64, MF_BYPOSITION);
    return caption;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Languages, MenuBar, testing::Range(0u, unsigned{LANGUAGE_COUNT}));

TEST_P(MenuBar, NamesItsMenuAndTwoButtons) {
    EXPECT_EQ(348 + GetParam(), m_bar.header.menu);
    EXPECT_EQ(2u, m_bar.header.buttonCount);
}

TEST_P(MenuBar, ButtonsOpenThePopups) {
    const UINT commands[] = {32900, 32901};
    for (int i = 0; i < 2; ++i) {
        const MenuBarButton& button = m_bar.buttons[i];
        EXPECT_EQ(static_cast<uint16_t>(I_IMAGENONE), button.image);
        EXPECT_EQ(commands[i], button.command);
        EXPECT_EQ(TBSTATE_ENABLED, button.state);
        EXPECT_EQ(TBSTYLE_DROPDOWN | TBSTYLE_AUTOSIZE, button.style);
        EXPECT_EQ(0u, button.reserved);
        EXPECT_EQ(i, button.popup);
    }
}

TEST_P(MenuBar, ButtonsReadAsThePopups) {
    const HMENU menu = LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(m_bar.header.menu));
    ASSERT_NE(nullptr, menu);
    for (int i = 0; i < 2; ++i) {
        EXPECT_NE(L"", moduleString(m_bar.buttons[i].caption));
        EXPECT_EQ(popupCaption(menu, i), moduleString(m_bar.buttons[i].caption));
    }
    DestroyMenu(menu);
}
