// What is where on the key pad, pixels.
#pragma once
#include <windows.h>

namespace handheld {

inline constexpr int kPadWidth = 240;
inline constexpr int kPadHeight = 112;
inline constexpr wchar_t kPadClass[] = L"HandheldKeyPad";

// A round key and the handheld's virtual key that it stands for.
struct PadKey {
    UINT key;
    int x, y, radius;
};
inline constexpr PadKey kPadKeys[] = {
    {193, 24, 34, 19}, {194, 64, 34, 19}, {134, 120, 38, 33}, {195, 176, 34, 19}, {196, 216, 34, 19},
};

// The card with its slot, lamp and arrow.
inline constexpr RECT kCardArea = {50, 82, 192, 111};

constexpr RECT AreaOf(const PadKey& key) {
    return {key.x - key.radius, key.y - key.radius, key.x + key.radius + 1, key.y + key.radius + 1};
}

// The key at a place, or null.
constexpr const PadKey* PadKeyAt(POINT place) {
    for (const PadKey& key : kPadKeys) {
        const long right = place.x - key.x, down = place.y - key.y;
        if (right * right + down * down <= key.radius * key.radius) return &key;
    }
    return nullptr;
}

}  // namespace handheld
