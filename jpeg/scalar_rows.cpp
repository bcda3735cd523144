// Rows of samples to rows of pixels, four columns at a time, see scalar_colors.h. A group of which a channel
// has to be clamped goes through the portable formats.
#include "jpeg/scalar_rows.h"

#include "jpeg/pixel_formats.h"
#include "jpeg/scalar_colors.h"
#include "jpeg/scalar_words.h"

namespace jpeg {

namespace {

// Read at run time, so that the compiler multiplies instead of adding shifted copies one by one.
const volatile uint32_t kRuntimeLumaLanes = kLumaLanes;

// The formats: what puts the lanes of `kColumns` pixels, none of which needs clamping.
struct LanesToBgr24 {
    using Portable = Bgr24;
    static constexpr uint32_t kAlignment = 1;
    template <uint32_t kColumns>
    static uint8_t* put(uint8_t* out, const uint32_t* lanes) {
        for (uint32_t i = 0; i < kColumns; ++i, out += 3) {
            out[0] = static_cast<uint8_t>(lanes[i]);
            out[1] = static_cast<uint8_t>(lanes[i] >> (kGreenLane + 2));
            out[2] = static_cast<uint8_t>(lanes[i] >> kRedLane);
        }
        return out;
    }
};

struct LanesToRgb565 {
    using Portable = Rgb565;
    static constexpr uint32_t kAlignment = 2;
    // The lanes lie so that blue and red move to their places together.
    static uint32_t pixel(uint32_t lanes) {
        return (lanes >> 3 & 0xF81F) | (lanes >> 19 & 0x07E0);
    }
    template <uint32_t kColumns>
    static uint8_t* put(uint8_t* out, const uint32_t* lanes) {
        for (uint32_t i = 0; i < kColumns; ++i, out += 2) storeHalf(out, pixel(lanes[i]));
        return out;
    }
};

// Columns per chroma pair; 4 = one pair for the whole group.
template <class Portable, uint32_t kColumns, uint32_t kStep>
[[gnu::noinline]] uint8_t* convertClamped(const SourceRow& row, uint8_t* out) {
    for (uint32_t i = 0; i < kColumns; ++i) {
        out = Portable::put(out, row.y[i], Portable::chroma(row, i / kStep));
    }
    return out;
}

// The first kColumns of every four.
template <class Format, uint32_t kColumns, uint32_t kStep>
uint8_t* convertGroups(const DecoderContext& context, const SourceRow& source, uint8_t* out) {
    constexpr uint32_t kChromaPerGroup = kStep == 1 ? 4 : 2;
    const uint32_t lumaLanes = kRuntimeLumaLanes;
    const uint32_t* const cbLanes = kChromaLanes.cb;
    const uint32_t* const crLanes = kChromaLanes.cr;
    const uint8_t* y = source.y;
    const uint8_t* cb = source.cb;
    const uint8_t* cr = source.cr;
    for (const uint8_t* const end = y + context.scaledWidth; y != end; y += 4) {
        uint32_t lanes[kColumns];
        uint32_t chroma = 0;
        for (uint32_t i = 0; i < kColumns; ++i) {
            if (i % kStep == 0) chroma = cbLanes[cb[i / kStep]] + crLanes[cr[i / kStep]];
            lanes[i] = y[i] * lumaLanes + chroma;
        }
        uint32_t all = lanes[0];
        for (uint32_t i = 1; i < kColumns; ++i) all |= lanes[i];
        if ((all & kLaneGuards) == 0) {
            out = Format::template put<kColumns>(out, lanes);
        } else {
            out = convertClamped<typename Format::Portable, kColumns, kStep>({y, cb, cr}, out);
        }
        cb += kChromaPerGroup;
        cr += kChromaPerGroup;
    }
    return out;
}

// By columns per chroma sample, as a shift, and by scaling.
template <class Format>
struct ScalarRows {
    static constexpr RowConverter kByScaling[2][2] = {
        {convertGroups<Format, 4, 1>, convertGroups<Format, 3, 1>},
        {convertGroups<Format, 4, 2>, convertGroups<Format, 3, 4>},
    };
};

}  // namespace

RowConverter scalarRowConverter(const DecoderContext& context) {
    if (context.scaledWidth % 4 != 0 || context.rowScaling == kScalingGeneral) return context.convertRow;
    const uint32_t shift = context.samplingKind == 2 ? 0 : 1;
    return context.mode < 7 ? ScalarRows<LanesToRgb565>::kByScaling[shift][context.rowScaling]
                            : ScalarRows<LanesToBgr24>::kByScaling[shift][context.rowScaling];
}

}  // namespace jpeg
