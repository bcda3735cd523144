// Tables of the colour conversion. Channels are computed in quarters of a level: 4 Y plus the chroma's share.
#pragma once
#include <cstdint>

namespace jpeg {

inline constexpr int32_t kClampBelow = 1024;  // least index of clampQuarter is -kClampBelow
inline constexpr int32_t kClampEntries = 3072;

struct ColorTables {
    int32_t crToR[256];
    int32_t cbToG[256];
    int32_t crToG[256];
    int32_t cbToB[256];
    int32_t yToIndex[256];
    uint8_t clampQuarter[kClampEntries];  // index + kClampBelow
    uint16_t red565[256];
    uint16_t green565[256];
    uint16_t blue565[256];
};

// Four times millionths / 1e6 times the centred sample, to the nearest integer, halves away from zero.
constexpr int32_t chromaShare(int32_t millionths, int32_t sample) {
    const int64_t product = int64_t{4} * millionths * (sample - 128);
    return static_cast<int32_t>((product + (product < 0 ? -500000 : 500000)) / 1000000);
}

constexpr ColorTables makeColorTables() {
    ColorTables tables{};
    for (int32_t i = 0; i < 256; ++i) {
        tables.crToR[i] = chromaShare(1402000, i);
        tables.cbToG[i] = chromaShare(-344140, i);
        tables.crToG[i] = chromaShare(-714136, i);
        tables.cbToB[i] = chromaShare(1772000, i);
        tables.yToIndex[i] = 4 * i;
        tables.red565[i] = static_cast<uint16_t>((i >> 3) << 11);
        tables.green565[i] = static_cast<uint16_t>((i >> 2) << 5);
        tables.blue565[i] = static_cast<uint16_t>(i >> 3);
    }
    for (int32_t i = 0; i < kClampEntries; ++i) {
        const int32_t quarters = i - kClampBelow;
        tables.clampQuarter[i] = static_cast<uint8_t>(quarters < 0      ? 0
                                                      : quarters > 1019 ? 255
                                                                        : quarters >> 2);
    }
    return tables;
}

inline constexpr ColorTables kColorTables = makeColorTables();

}  // namespace jpeg
