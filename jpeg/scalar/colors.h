// The colour conversion of four pixels at a time in plain words: all three channels of a pixel in one word.
//
// A channel is (4 Y + share) / 4, rounded down, as in color_tables.h. The shares of red and blue come from
// one sample each, and 4 Y is a whole number of levels, so their share may be rounded down beforehand; green
// adds up two and keeps its quarters. The lanes of a word:
//
//     bits 0..8    blue, in levels           bit 8 set: not in 0..255
//     bits 11..19  red, in levels            bit 19 set: not in 0..255
//     bits 20..30  green, in quarters        bit 30 set: not in 0..1023
//
// Sums of lanes are sums of words. Blue and red lie in -256..511, green in -1024..2047, so that the guard
// bits tell whether a channel has to be clamped, and a negative lane, which takes one from the lane above, is
// always told by its own guard.
#pragma once
#include <cstdint>

#include "jpeg/color_tables.h"

namespace jpeg {

inline constexpr uint32_t kRedLane = 11;
inline constexpr uint32_t kGreenLane = 20;
inline constexpr uint32_t kLaneGuards = 1u << 8 | 1u << 19 | 1u << 30;

// A luma sample in its lanes: times this.
inline constexpr uint32_t kLumaLanes = 1u | 1u << kRedLane | 4u << kGreenLane;

struct ChromaLanes {
    uint32_t cb[256];
    uint32_t cr[256];
};

constexpr ChromaLanes makeChromaLanes() {
    ChromaLanes lanes{};
    for (int32_t i = 0; i < 256; ++i) {
        const uint32_t blue = static_cast<uint32_t>(kColorTables.cbToB[i] >> 2);
        const uint32_t red = static_cast<uint32_t>(kColorTables.crToR[i] >> 2);
        lanes.cb[i] = blue + (static_cast<uint32_t>(kColorTables.cbToG[i]) << kGreenLane);
        lanes.cr[i] = (red << kRedLane) + (static_cast<uint32_t>(kColorTables.crToG[i]) << kGreenLane);
    }
    return lanes;
}

inline constexpr ChromaLanes kChromaLanes = makeChromaLanes();

}  // namespace jpeg
