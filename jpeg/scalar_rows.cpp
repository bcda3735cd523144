// Rows of samples to rows of pixels, four columns at a time, see scalar_colors.h. A group of which a channel
// has to be clamped goes through the portable formats.
#include "jpeg/scalar_rows.h"

#include <utility>

#include "jpeg/pixel_formats.h"
#include "jpeg/scalar_colors.h"
#include "jpeg/scalar_words.h"

namespace jpeg {

namespace {

// Read at run time: the compiler would add shifted copies instead of multiplying, and mask in two steps.
const volatile uint32_t kRuntimeLumaLanes = kLumaLanes;
const volatile uint32_t kRuntimeRed = 0xFFu << kRedLane;
const volatile uint32_t kRuntimeGreen = 0xFFu << (kGreenLane + 2);
const volatile uint32_t kRuntimeRedBlue565 = 0xF81F;
const volatile uint32_t kRuntimeGreen565 = 0x07E0;

struct Channels {
    uint32_t red, green, blue;
};

// The formats: kAlignment of the rows; put() writes pixels of which no channel needs clamping, putOne() one of
// clamped channels.
struct LanesToBgr24 {
    using Portable = Bgr24;
    static constexpr uint32_t kAlignment = 4;
    const uint32_t red = kRuntimeRed;
    const uint32_t green = kRuntimeGreen;

    // Four pixels are three words.
    template <uint32_t kColumns>
    uint8_t* put(uint8_t* out, const uint32_t* lanes) const {
        if constexpr (kColumns == 4) {
            const uint32_t a = lanes[0], b = lanes[1], c = lanes[2], d = lanes[3];
            storeWord(out, (a & 0xFF) | (a & green) >> 14 | (a & red) << 5 | b << 24);
            storeWord(out + 4, b >> 22 | (b & red) >> 3 | (c & 0xFF) << 16 | (c & green) << 2);
            storeWord(out + 8, (c & red) >> 11 | (d & 0xFF) << 8 | (d & green) >> 6 | (d & red) << 13);
            return out + 12;
        }
        for (uint32_t i = 0; i < kColumns; ++i) {
            out = putOne(out, {lanes[i] >> kRedLane, lanes[i] >> (kGreenLane + 2), lanes[i]});
        }
        return out;
    }
    // Of each channel only the lowest byte counts.
    static uint8_t* putOne(uint8_t* out, const Channels& channels) {
        out[0] = static_cast<uint8_t>(channels.blue);
        out[1] = static_cast<uint8_t>(channels.green);
        out[2] = static_cast<uint8_t>(channels.red);
        return out + 3;
    }
};

struct LanesToRgb565 {
    using Portable = Rgb565;
    static constexpr uint32_t kAlignment = 4;
    const uint32_t redBlue = kRuntimeRedBlue565;
    const uint32_t green = kRuntimeGreen565;

    // The lanes lie so that blue and red move to their places together.
    uint32_t pixel(uint32_t lanes) const { return (lanes >> 3 & redBlue) | (lanes >> 19 & green); }
    template <uint32_t kColumns>
    uint8_t* put(uint8_t* out, const uint32_t* lanes) const {
        if constexpr (kColumns == 4) {
            storeWord(out, pixel(lanes[0]) | pixel(lanes[1]) << 16);
            storeWord(out + 4, pixel(lanes[2]) | pixel(lanes[3]) << 16);
        } else {
            for (uint32_t i = 0; i < kColumns; ++i) storeHalf(out + 2 * i, pixel(lanes[i]));
        }
        return out + 2 * kColumns;
    }
    static uint8_t* putOne(uint8_t* out, const Channels& channels) {
        storeHalf(out, (channels.red & 0xF8) << 8 | (channels.green & 0xFC) << 3 | (channels.blue & 0xFF) >> 3);
        return out + 2;
    }
};

// Into 0..255, in the lowest byte.
inline uint32_t clampedLevel(int32_t level) {
    return static_cast<uint32_t>((level & ~255) == 0 ? level : ~(level >> 31));
}

// What a chroma pair adds to the channels, in whole levels: 4 Y is a whole number of them, so that the shares
// may be rounded down before the sum is.
struct LevelShares {
    int32_t red, green, blue;
};
inline LevelShares levelShares(uint32_t chromaLanes) {
    const auto lane = [](uint32_t lanes, uint32_t at) { return static_cast<int32_t>(lanes << (23 - at)) >> 23; };
    const int32_t blue = lane(chromaLanes, 0);
    const uint32_t withoutBlue = chromaLanes - static_cast<uint32_t>(blue);
    const int32_t red = lane(withoutBlue, kRedLane);
    const uint32_t greenAlone = withoutBlue - (static_cast<uint32_t>(red) << kRedLane);
    return {red, static_cast<int32_t>(greenAlone) >> (kGreenLane + 2), blue};
}

template <class Format, uint32_t kStep, uint32_t kColumn>
inline void convertOne(const uint8_t* y, const uint8_t* cb, const uint8_t* cr, LevelShares& shares, uint8_t*& out) {
    constexpr uint32_t kAt = kColumn / kStep;
    if constexpr (kColumn % kStep == 0) shares = levelShares(kChromaLanes.cb[cb[kAt]] + kChromaLanes.cr[cr[kAt]]);
    const int32_t level = y[kColumn];
    out = Format::putOne(out, {clampedLevel(level + shares.red), clampedLevel(level + shares.green),
                               clampedLevel(level + shares.blue)});
}

// A group of which a channel has to be clamped. kStep: columns per chroma pair, 4 = one pair for the whole.
template <class Format, uint32_t kStep, uint32_t... kColumn>
[[gnu::noinline]] uint8_t* convertClamped(const uint8_t* y, const uint8_t* cb, const uint8_t* cr, uint8_t* out,
                                          std::integer_sequence<uint32_t, kColumn...>) {
    LevelShares shares;
    (convertOne<Format, kStep, kColumn>(y, cb, cr, shares, out), ...);
    return out;
}

// The first kColumns of every four.
template <class Format, uint32_t kColumns, uint32_t kStep>
uint8_t* convertGroups(const DecoderContext& context, const SourceRow& source, uint8_t* out) {
    constexpr uint32_t kChromaPerGroup = kStep == 1 ? 4 : 2;
    const Format format;
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
            out = format.template put<kColumns>(out, lanes);
        } else {
            out = convertClamped<Format, kStep>(y, cb, cr, out, std::make_integer_sequence<uint32_t, kColumns>());
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
