#include "handheld/aygshell/menu_template.h"

#include <cstring>

namespace handheld {
namespace {

// menu, button count
constexpr size_t kHeadWords = 2;
// picture (none), command, state, style, caption, reserved, pop-up
constexpr size_t kButtonWords = 7;

}  // namespace

std::optional<MenuTemplate> ReadMenuTemplate(const void* data, size_t bytes) {
    std::vector<uint16_t> words(bytes / sizeof(uint16_t));
    if (words.size() < kHeadWords) return std::nullopt;
    std::memcpy(words.data(), data, words.size() * sizeof(uint16_t));
    const size_t count = words[1];
    if ((words.size() - kHeadWords) / kButtonWords < count) return std::nullopt;
    MenuTemplate result = {words[0], {}};
    for (size_t i = 0; i < count; ++i) {
        const uint16_t* button = &words[kHeadWords + i * kButtonWords];
        result.buttons.push_back({button[1], button[2], button[3], button[4], button[6]});
    }
    return result;
}

}  // namespace handheld
