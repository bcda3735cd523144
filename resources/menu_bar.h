// The record from which the shell makes a menu bar: an RCDATA resource, 16-bit words throughout, that names a
// menu and gives one button for each of its pop-ups. Read by the compiler and by the resource compiler.
#pragma once

#define MENU_BAR_NO_IMAGE 0xFFFE  // -2: the button shows its caption alone
#define MENU_BAR_ENABLED 0x04     // as TBSTATE_ENABLED
#define MENU_BAR_DROPDOWN \
    0x18  // as TBSTYLE_DROPDOWN | TBSTYLE_AUTOSIZE: opens a pop-up, as wide as its caption
#define MENU_BAR_NO_MENU 0xFFFF  // in place of a pop-up's position: the button sends its command instead

#ifndef RC_INVOKED
#include <cstdint>

struct MenuBarHeader {
    uint16_t menu;         // number of the MENU resource, in the same module
    uint16_t buttonCount;  // buttons that follow
};

struct MenuBarButton {
    uint16_t image;    // position in the bar's bitmap, or MENU_BAR_NO_IMAGE
    uint16_t command;  // the button's command; SHCMBM_GETSUBMENU finds its pop-up by this
    uint16_t state;
    uint16_t style;
    uint16_t caption;  // string resource, in the same module
    uint16_t reserved;
    uint16_t popup;  // position of its pop-up in the menu, or MENU_BAR_NO_MENU
};

static_assert(sizeof(MenuBarHeader) == 4 && sizeof(MenuBarButton) == 14);
#endif
