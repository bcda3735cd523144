#include "framework/menu_bar.h"

#include "framework/program_module.h"
#include "shell_double.h"
#include "test_resources.h"

#include <gtest/gtest.h>

namespace {

class MenuBar : public ::testing::Test {
  protected:
    MenuBar() {
        TestShell() = {};
        parent =
            CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 240, 320, nullptr, nullptr, nullptr, nullptr);
    }
    ~MenuBar() override { DestroyWindow(parent); }

    UINT StateOf(UINT command) const {
        const HMENU menu = reinterpret_cast<HMENU>(SendMessageW(bar.Hwnd(), SHCMBM_GETMENU, 0, 0));
        return GetMenuState(menu, command, MF_BYCOMMAND);
    }

    HWND parent;
    CMenuBar bar;
};

TEST_F(MenuBar, AsksTheShellForIt) {
    ASSERT_TRUE(bar.Create(parent, IDR_MENU));
    ASSERT_EQ(1u, TestShell().createMenuBar.size());
    const SHMENUBARINFO& asked = TestShell().createMenuBar[0];
    EXPECT_EQ(sizeof(SHMENUBARINFO), asked.cbSize);
    EXPECT_EQ(parent, asked.hwndParent);
    EXPECT_EQ(static_cast<UINT>(IDR_MENU), asked.nToolBarId);
    EXPECT_EQ(ProgramModule(), asked.hInstRes);
    EXPECT_TRUE(IsWindow(bar.Hwnd()));
}

TEST_F(MenuBar, ChecksAndEnablesItemsInPopUps) {
    ASSERT_TRUE(bar.Create(parent, IDR_MENU));
    bar.Check(ID_STILL, false);
    bar.Check(ID_VIDEO, true);
    bar.Enable(ID_PLAY, false);
    EXPECT_FALSE(StateOf(ID_STILL) & MF_CHECKED);
    EXPECT_TRUE(StateOf(ID_VIDEO) & MF_CHECKED);
    EXPECT_TRUE(StateOf(ID_PLAY) & MF_GRAYED);
    bar.Check(ID_VIDEO, false);
    bar.Enable(ID_PLAY, true);
    EXPECT_FALSE(StateOf(ID_VIDEO) & MF_CHECKED);
    EXPECT_FALSE(StateOf(ID_PLAY) & MF_GRAYED);
}

TEST_F(MenuBar, CreatingAgainReplacesIt) {
    ASSERT_TRUE(bar.Create(parent, IDR_MENU));
    const HWND first = bar.Hwnd();
    ASSERT_TRUE(bar.Create(parent, IDR_MENU));
    EXPECT_FALSE(IsWindow(first));
    EXPECT_TRUE(IsWindow(bar.Hwnd()));
}

TEST_F(MenuBar, DestroyRemovesIt) {
    ASSERT_TRUE(bar.Create(parent, IDR_MENU));
    const HWND hwnd = bar.Hwnd();
    bar.Destroy();
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(nullptr, bar.Hwnd());
    bar.Destroy();
    bar.Check(ID_STILL, true);  // without a bar: nothing
}

TEST_F(MenuBar, GoesDownWithItsParent) {
    ASSERT_TRUE(bar.Create(parent, IDR_MENU));
    DestroyWindow(parent);
    EXPECT_EQ(nullptr, bar.Hwnd());
}

TEST_F(MenuBar, RefusalLeavesNoBar) {
    TestShell().refuseMenuBar = true;
    EXPECT_FALSE(bar.Create(parent, IDR_MENU));
    EXPECT_EQ(nullptr, bar.Hwnd());
    bar.Enable(ID_PLAY, false);
}

}  // namespace
