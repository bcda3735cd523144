// A menu bar's resource: RCDATA of 16-bit words, one menu and its buttons.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace handheld {

struct MenuButtonTemplate {
    uint16_t command;
    uint16_t state;    // TBSTATE_ENABLED, TBSTATE_HIDDEN
    uint16_t style;    // TBSTYLE_...
    uint16_t caption;  // string resource
    uint16_t popup;    // which pop-up of the menu; kNoPopup: the button is a command
};

inline constexpr uint16_t kNoPopup = 0xFFFF;

struct MenuTemplate {
    uint16_t menu;  // menu resource
    std::vector<MenuButtonTemplate> buttons;
};

// Nothing when the resource is shorter than its button count says.
std::optional<MenuTemplate> ReadMenuTemplate(const void* data, size_t bytes);

}  // namespace handheld
