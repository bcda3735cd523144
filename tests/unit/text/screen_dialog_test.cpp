#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>

#include "resources/resource.h"

TEST(ScreenDialog, IsAPlainWindowWithoutControls) {
    const HMODULE module = GetModuleHandleW(nullptr);
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(102), RT_DIALOG);
    ASSERT_NE(nullptr, found);
    DLGTEMPLATE dialog = {};
    ASSERT_GE(SizeofResource(module, found), sizeof dialog);
    std::memcpy(&dialog, LockResource(LoadResource(module, found)), sizeof dialog);
    EXPECT_EQ(0u, dialog.cdit);
    EXPECT_EQ(WS_POPUP | WS_VISIBLE | DS_SETFONT, dialog.style);
    EXPECT_EQ(160, dialog.cx);
    EXPECT_EQ(165, dialog.cy);
}
