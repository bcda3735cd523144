#include "shell_fixture.h"
#include "shell_test.h"

namespace {

constexpr int kBarY = 307;  // a row of the menu bar
constexpr int kFileX = 12;

class MenuBar : public testing::Test {
  protected:
    MenuBar() {
        m_dialog.Fill();
        m_bar = m_dialog.AddBar(IDM_BAR);
    }

    HMENU Menu() const { return reinterpret_cast<HMENU>(SendMessageW(m_bar, SHCMBM_GETMENU, 0, 0)); }
    void Key(WPARAM key) { PostMessageW(m_dialog.Window(), WM_KEYDOWN, key, 1); }
    // Left edge of the first button beyond the one at x whose caption starts there; 240 without one.
    int ButtonRightOf(int x) const;

    TestDialog m_dialog;
    HWND m_bar;
};

int MenuBar::ButtonRightOf(int x) const {
    const auto inked = [&](int column) {
        for (int y = 296; y < 320; ++y)
            if (m_dialog.Pixel(column, y) != m_dialog.Pixel(239, y)) return true;
        return false;
    };
    // Letters of a caption are less than nine pixels apart, captions twelve or more.
    for (int gap = 0; gap < 9 && x < 240; ++x) gap = inked(x) ? 0 : gap + 1;
    while (x < 240 && !inked(x)) ++x;
    return x;
}

}  // namespace

TEST_F(MenuBar, AnswersForItsMenus) {
    ASSERT_TRUE(m_bar);
    ASSERT_TRUE(IsMenu(Menu()));
    EXPECT_EQ(GetMenuItemCount(Menu()), 2);
    HMENU mode = reinterpret_cast<HMENU>(SendMessageW(m_bar, SHCMBM_GETSUBMENU, 0, ID_MODE));
    EXPECT_EQ(mode, GetSubMenu(Menu(), 1));
    EXPECT_TRUE(GetMenuState(mode, ID_STILL, MF_BYCOMMAND) & MF_CHECKED);
    EXPECT_EQ(SendMessageW(m_bar, SHCMBM_GETSUBMENU, 0, ID_REFRESH), 0);
    EXPECT_EQ(SendMessageW(m_bar, SHCMBM_GETSUBMENU, 0, 9999), 0);
}

TEST_F(MenuBar, TapOpensAPopupAboveTheBar) {
    WithPopup([&] { m_dialog.Tap(kFileX, kBarY); },
              [&](HWND popup) {
                  RECT menu;
                  GetWindowRect(popup, &menu);
                  const RECT place = m_dialog.Place();
                  EXPECT_LE(menu.bottom, place.bottom - 26);
                  EXPECT_GE(menu.top, place.top);
                  EXPECT_GE(menu.left, place.left);
                  EXPECT_LE(menu.right, place.right);
                  EXPECT_EQ(m_dialog.Pixel(kFileX - 6, kBarY), RGB(0, 0, 128));  // the open button stands out
                  Key(VK_ESCAPE);
              });
    EXPECT_TRUE(m_dialog.Got(WM_INITMENUPOPUP));
    EXPECT_FALSE(m_dialog.Got(WM_COMMAND));
    EXPECT_NE(m_dialog.Pixel(kFileX - 6, kBarY), RGB(0, 0, 128));
}

TEST_F(MenuBar, ChosenItemIsACommand) {
    WithPopup([&] { m_dialog.Tap(kFileX, kBarY); },
              [&](HWND) {
                  Key(VK_UP);  // from the bottom
                  Key(VK_RETURN);
              });
    m_dialog.Pump();
    EXPECT_TRUE(m_dialog.GotCommand(ID_EXIT));
}

TEST_F(MenuBar, GreyItemIsNone) {
    EnableMenuItem(Menu(), ID_PLAY, MF_BYCOMMAND | MF_GRAYED);
    WithPopup([&] { m_dialog.Tap(kFileX, kBarY); },
              [&](HWND) {
                  Key(VK_DOWN);
                  Key(VK_RETURN);
                  Key(VK_ESCAPE);
              });
    m_dialog.Pump();
    EXPECT_FALSE(m_dialog.GotCommand(ID_PLAY));
}

TEST_F(MenuBar, ArrowGoesToTheNextMenu) {
    WithPopup([&] { m_dialog.Tap(kFileX, kBarY); },
              [&](HWND first) {
                  Key(VK_RIGHT);
                  EXPECT_TRUE(WaitForPopup(first));
                  Key(VK_DOWN);
                  Key(VK_DOWN);
                  Key(VK_RETURN);
              });
    m_dialog.Pump();
    EXPECT_TRUE(m_dialog.GotCommand(ID_VIDEO));
}

TEST_F(MenuBar, F10OpensTheFirstMenuAndALetterItsOwn) {
    WithPopup([&] { SendMessageW(m_dialog.Window(), WM_SYSCOMMAND, SC_KEYMENU, 0); },
              [&](HWND) {
                  Key(VK_DOWN);
                  Key(VK_RETURN);
              });
    m_dialog.Pump();
    EXPECT_TRUE(m_dialog.GotCommand(ID_PLAY));
    WithPopup([&] { SendMessageW(m_dialog.Window(), WM_SYSCOMMAND, SC_KEYMENU, 'm'); },
              [&](HWND) {
                  Key(VK_DOWN);
                  Key(VK_RETURN);
              });
    m_dialog.Pump();
    EXPECT_TRUE(m_dialog.GotCommand(ID_STILL));
}

TEST_F(MenuBar, ButtonWithoutPopupIsACommand) {
    m_dialog.Tap(ButtonRightOf(ButtonRightOf(kFileX)) + 3, kBarY);
    EXPECT_TRUE(m_dialog.GotCommand(ID_REFRESH));
}

TEST_F(MenuBar, RightEndIsEmpty) {
    m_dialog.Tap(230, kBarY);
    EXPECT_FALSE(m_dialog.Got(WM_COMMAND));
    EXPECT_FALSE(m_dialog.Got(WM_INITMENUPOPUP));
}

TEST_F(MenuBar, HiddenOrDisabledBarDoesNothing) {
    EnableWindow(m_bar, FALSE);
    m_dialog.Tap(kFileX, kBarY);
    EnableWindow(m_bar, TRUE);
    ShowWindow(m_bar, SW_HIDE);
    m_dialog.Tap(kFileX, kBarY);
    EXPECT_FALSE(m_dialog.Got(WM_INITMENUPOPUP));
}

// Opening the settings takes the bar away; it is made anew afterwards.
TEST_F(MenuBar, DestroyedBarLeavesAnEmptyStrip) {
    HMENU menu = Menu();
    DestroyWindow(m_bar);
    EXPECT_FALSE(IsMenu(menu));
    const COLORREF paper = m_dialog.Pixel(230, kBarY);
    for (int x = 0; x < 240; ++x)
        for (int y = 296; y < 320; ++y) ASSERT_EQ(m_dialog.Pixel(x, y), paper);
    m_dialog.Tap(kFileX, kBarY);
    EXPECT_FALSE(m_dialog.Got(WM_INITMENUPOPUP));
    EXPECT_TRUE(m_dialog.AddBar(IDM_BAR));
    EXPECT_LT(ButtonRightOf(kFileX), 240);
}

// The watchdog may close the camera while a menu is open.
TEST_F(MenuBar, ScreenMayGoWhileAMenuIsOpen) {
    WithPopup([&] { m_dialog.Tap(kFileX, kBarY); },
              [&](HWND) { SendMessageW(m_dialog.Window(), kMsgDestroy, 0, 0); });
    EXPECT_FALSE(IsWindow(m_dialog.Window()));
    EXPECT_FALSE(IsWindow(m_bar));
}

TEST_F(MenuBar, BarMayGoWhileItsMenuIsOpen) {
    WithPopup([&] { m_dialog.Tap(kFileX, kBarY); }, [&](HWND) { SendMessageW(m_bar, WM_CLOSE, 0, 0); });
    EXPECT_FALSE(IsWindow(m_bar));
    EXPECT_TRUE(IsWindow(m_dialog.Window()));
}

TEST_F(MenuBar, BadResourcesAreRefused) {
    TestDialog other;
    other.Fill();
    for (UINT resource : {9999, IDM_BAR_MISSING_MENU, IDM_BAR_TOO_SHORT, IDM_BAR_MISSING_POPUP})
        EXPECT_FALSE(other.AddBar(resource)) << resource;
    EXPECT_FALSE(SHCreateMenuBar(nullptr));
    SHMENUBARINFO info = {};
    info.cbSize = sizeof info;
    EXPECT_FALSE(SHCreateMenuBar(&info));
}
