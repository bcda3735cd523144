// The pixel formats that the converters write. Each offers
//   kBytes                bytes of a pixel
//   chroma(row, at)       what the pixels that share a chroma pair have in common
//   put(out, y, chroma)   writes one pixel, returns the place of the next
#pragma once
#include "jpeg/color_tables.h"

// One row of samples.
struct SourceRow {
    const uint8_t* y;
    const uint8_t* cb;
    const uint8_t* cr;
};

namespace jpeg {

// Contributions of a chroma pair to the three channels, in quarters.
struct ChromaShares {
    int32_t red, green, blue;
};

struct ColorFormat {
    static ChromaShares chroma(const SourceRow& row, uint32_t at) {
        const uint8_t cb = row.cb[at];
        const uint8_t cr = row.cr[at];
        return {kColorTables.crToR[cr], kColorTables.cbToG[cb] + kColorTables.crToG[cr],
                kColorTables.cbToB[cb]};
    }

  protected:
    static uint8_t channel(uint8_t y, int32_t share) {
        return kColorTables.clampQuarter[kClampBelow + kColorTables.yToIndex[y] + share];
    }
};

// Little-endian words, byte by byte: the same on every machine.
struct Rgb565 : ColorFormat {
    static constexpr uint32_t kBytes = 2;
    static uint8_t* put(uint8_t* out, uint8_t y, const ChromaShares& shares) {
        const uint32_t pixel = kColorTables.red565[channel(y, shares.red)] +
                               kColorTables.green565[channel(y, shares.green)] +
                               kColorTables.blue565[channel(y, shares.blue)];
        out[0] = static_cast<uint8_t>(pixel);
        out[1] = static_cast<uint8_t>(pixel >> 8);
        return out + kBytes;
    }
};

struct Bgr24 : ColorFormat {
    static constexpr uint32_t kBytes = 3;
    static uint8_t* put(uint8_t* out, uint8_t y, const ChromaShares& shares) {
        out[0] = channel(y, shares.blue);
        out[1] = channel(y, shares.green);
        out[2] = channel(y, shares.red);
        return out + kBytes;
    }
};

struct Luma8 {
    static constexpr uint32_t kBytes = 1;
    struct NoChroma {};
    static NoChroma chroma(const SourceRow&, uint32_t) { return {}; }
    static uint8_t* put(uint8_t* out, uint8_t y, NoChroma) {
        *out = y;
        return out + kBytes;
    }
};

}  // namespace jpeg
