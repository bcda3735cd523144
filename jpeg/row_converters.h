// Converters of one row of samples, by scaling, pixel format and columns per chroma sample.
#pragma once
#include "jpeg/converters.h"
#include "jpeg/pixel_formats.h"

namespace jpeg {

inline constexpr int32_t kUnit = 4096;  // one row or column in the accumulators

// Every column. kShift: 0 = a chroma pair for each column, 1 = for two columns.
template <class Pixel, uint32_t kShift>
uint8_t* exactRow(const DecoderContext& context, const SourceRow& row, uint8_t* out) {
    constexpr uint32_t kColumns = 1u << kShift;
    for (uint32_t x = 0; x < context.scaledWidth; x += kColumns) {
        const auto chroma = Pixel::chroma(row, x >> kShift);
        for (uint32_t i = 0; i < kColumns; ++i) out = Pixel::put(out, row.y[x + i], chroma);
    }
    return out;
}

// The first three of every four columns. Where chroma is shared, the first pair serves all three of them, so
// colours may stand one column too far to the right.  (ThreeQuarter.FirstChromaPairServesThreePixels)
template <class Pixel, uint32_t kShift>
uint8_t* threeQuarterRow(const DecoderContext& context, const SourceRow& row, uint8_t* out) {
    for (uint32_t x = 0; x < context.scaledWidth; x += 4) {
        for (uint32_t i = 0; i < 3; ++i) {
            const uint32_t at = kShift == 0 ? x + i : x >> kShift;
            out = Pixel::put(out, row.y[x + i], Pixel::chroma(row, at));
        }
    }
    return out;
}

// Nearest neighbour: a column is taken as often as its accumulator stands above the limit.
template <class Pixel, uint32_t kShift>
uint8_t* generalRow(const DecoderContext& context, const SourceRow& row, uint8_t* out) {
    const int32_t step = static_cast<int32_t>(context.step);
    const int32_t limit = context.limit;
    int32_t accumulator = kUnit;
    for (uint32_t x = 0; x < context.scaledWidth; ++x) {
        if (accumulator > limit) {
            const auto chroma = Pixel::chroma(row, x >> kShift);
            do {
                out = Pixel::put(out, row.y[x], chroma);
                accumulator -= kUnit;
            } while (accumulator > limit);
        }
        accumulator += step;
    }
    return out;
}

}  // namespace jpeg
