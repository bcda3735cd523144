#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "resources/resource.h"
#include "unit/text/module_strings.h"

namespace {

struct Item {
    UINT id;
    UINT type;
    UINT state;
    std::wstring caption;
    HMENU popup;
};

std::vector<Item> items(HMENU menu) {
    std::vector<Item> result;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t caption[64] = {};
        MENUITEMINFOW info = {};
        info.cbSize = sizeof info;
        info.fMask = MIIM_ID | MIIM_FTYPE | MIIM_STATE | MIIM_STRING | MIIM_SUBMENU;
        info.dwTypeData = caption;
        info.cch = 64;
        EXPECT_TRUE(GetMenuItemInfoW(menu, i, TRUE, &info));
        result.push_back({info.wID, info.fType, info.fState, caption, info.hSubMenu});
    }
    return result;
}

class Menu : public testing::TestWithParam<unsigned> {
  protected:
    void SetUp() override {
        m_menu = LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDM_CAMERA + GetParam()));
        ASSERT_NE(nullptr, m_menu);
        m_popups = items(m_menu);
        ASSERT_EQ(2u, m_popups.size());
        m_file = items(m_popups[0].popup);
        m_mode = items(m_popups[1].popup);
    }
    void TearDown() override { DestroyMenu(m_menu); }

    HMENU m_menu = nullptr;
    std::vector<Item> m_popups, m_file, m_mode;
};

std::vector<UINT> ids(const std::vector<Item>& list) {
    std::vector<UINT> result;
    for (const Item& item : list) result.push_back(item.type & MFT_SEPARATOR ? 0 : item.id);
    return result;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Languages, Menu, testing::Range(0u, unsigned{LANGUAGE_COUNT}));

TEST_P(Menu, HasTheCommandsInTheirOrder) {
    EXPECT_EQ((std::vector<UINT>{32830, 32771, 32829, 0, 32827}), ids(m_file));
    EXPECT_EQ((std::vector<UINT>{32839, 32837}), ids(m_mode));
}

TEST_P(Menu, OnlyStillIsCheckedAndNothingIsGreyed) {
    for (const auto* list : {&m_file, &m_mode})
        for (const Item& item : *list) {
            if (item.type & MFT_SEPARATOR) continue;  // a line is always grey
            EXPECT_EQ(item.id == ID_MODE_STILL, (item.state & MFS_CHECKED) != 0) << item.id;
            EXPECT_EQ(0u, item.state & MFS_GRAYED) << item.id;
        }
}

TEST_P(Menu, CaptionsAreInTheLanguagesScript) {
    for (const auto* list : {&m_popups, &m_file, &m_mode})
        for (const Item& item : *list)
            EXPECT_TRUE(item.type & MFT_SEPARATOR || inScriptOf(GetParam(), item.caption)) << item.id;
}

TEST_P(Menu, CaptionsOfOnePopupDiffer) {
    for (const auto* list : {&m_popups, &m_file, &m_mode})
        for (std::size_t i = 0; i < list->size(); ++i)
            for (std::size_t k = 0; k < i; ++k) EXPECT_NE((*list)[k].caption, (*list)[i].caption);
}

// Commands that open a window say so with three dots.
TEST_P(Menu, DotsStandWhereAWindowOpens) {
    for (const auto* list : {&m_popups, &m_file, &m_mode})
        for (const Item& item : *list) {
            const bool dots =
                item.caption.size() > 3 && item.caption.substr(item.caption.size() - 3) == L"...";
            EXPECT_EQ(item.id == ID_FILE_MENU || item.id == ID_FILE_ABOUT, dots) << item.id;
        }
}

TEST(Menus, EnglishReads) {
    const HMENU menu = LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDM_CAMERA));
    const auto captions = [](HMENU from) {
        std::wstring all;
        for (const Item& item : items(from)) all += item.caption + L"|";
        return all;
    };
    EXPECT_EQ(L"File|Mode|", captions(menu));
    EXPECT_EQ(L"Play|Menu...|About...||Exit|", captions(GetSubMenu(menu, 0)));
    EXPECT_EQ(L"Still|Video|", captions(GetSubMenu(menu, 1)));
    DestroyMenu(menu);
}

TEST(Menus, BothChineseMenusDiffer) {
    const HMENU simplified = LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(349));
    const HMENU traditional = LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(350));
    EXPECT_EQ(L"\u6587\u4EF6", items(simplified)[0].caption);
    EXPECT_EQ(L"\u6A94\u6848", items(traditional)[0].caption);
    DestroyMenu(simplified);
    DestroyMenu(traditional);
}
