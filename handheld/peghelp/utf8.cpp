#include "handheld/peghelp/utf8.h"

#include <cstdint>

namespace help {
namespace {

constexpr unsigned long kUnknown = 0xFFFD;

// How a first byte announces a character.
struct Lead {
    uint8_t mask, bits;
    int following;
    unsigned long lowest;  // smaller ones have a shorter form
};
constexpr Lead kLeads[] = {
    {0x80, 0x00, 0, 0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}};

// The character at `at`, which moves past it; a damaged one takes a single byte.
unsigned long TakeCharacter(const std::string& bytes, size_t& at) {
    const auto first = static_cast<uint8_t>(bytes[at++]);
    for (const Lead& lead : kLeads) {
        if ((first & lead.mask) != lead.bits) continue;
        unsigned long character = first & static_cast<uint8_t>(~lead.mask);
        size_t next = at;
        for (int i = 0; i < lead.following; ++i, ++next) {
            if (next == bytes.size() || (bytes[next] & 0xC0) != 0x80) return kUnknown;
            character = character << 6 | (bytes[next] & 0x3F);
        }
        if (character < lead.lowest) return kUnknown;
        at = next;
        return character;
    }
    return kUnknown;
}

}  // namespace

void AppendCharacter(std::wstring& text, unsigned long character) {
    if (character > 0x10FFFF || (character >= 0xD800 && character < 0xE000) || character == 0)
        character = kUnknown;
    if (sizeof(wchar_t) == 2 && character > 0xFFFF) {
        text += static_cast<wchar_t>(0xD7C0 + (character >> 10));
        text += static_cast<wchar_t>(0xDC00 + (character & 0x3FF));
    } else {
        text += static_cast<wchar_t>(character);
    }
}

std::wstring FromUtf8(const std::string& bytes) {
    std::wstring text;
    for (size_t at = 0; at < bytes.size();) {
        const unsigned long character = TakeCharacter(bytes, at);
        if (character != 0xFEFF || !text.empty()) AppendCharacter(text, character);
    }
    return text;
}

}  // namespace help
