// Rows of samples to rows of pixels, four pixels at a time, see scalar/colors.h; a turn of the loops takes
// two or three times four. Pixels are stored as words: the picture is not in the handheld's data cache, so
// that every store goes to memory.
#include "jpeg/scalar/rows.h"

#include <cstdint>

#include "jpeg/pixel_formats.h"
#include "jpeg/scalar/colors.h"
#include "jpeg/scalar/words.h"

namespace jpeg {

namespace {

// Read at run time: the compiler would add shifted copies instead of multiplying, and mask in two steps.
const volatile uint32_t kRuntimeLumaLanes = kLumaLanes;
const volatile uint32_t kRuntimeRed = 0xFFu << kRedLane;
const volatile uint32_t kRuntimeGreen = 0xFFu << (kGreenLane + 2);
const volatile uint32_t kRuntimeRedBlue565 = 0xF81F;
const volatile uint32_t kRuntimeGreen565 = 0x07E0;

struct FourLanes {
    uint32_t a, b, c, d;
};

// One pixel, channel by channel; of each only the lowest byte counts.
struct Channels {
    uint32_t red, green, blue;
};

// The formats. put() writes four pixels of which no channel needs clamping, putOne() one of clamped channels;
// `out` is a multiple of 4 at four pixels.
struct LanesToBgr24 {
    const uint32_t red = kRuntimeRed;
    const uint32_t green = kRuntimeGreen;

    uint8_t* put(uint8_t* out, const FourLanes& lanes) const {
        const auto [a, b, c, d] = lanes;
        storeWord(out, (a & 0xFF) | (a & green) >> 14 | (a & red) << 5 | b << 24);
        storeWord(out + 4, b >> 22 | (b & red) >> 3 | (c & 0xFF) << 16 | (c & green) << 2);
        storeWord(out + 8, (c & red) >> 11 | (d & 0xFF) << 8 | (d & green) >> 6 | (d & red) << 13);
        return out + 12;
    }
    static uint8_t* putOne(uint8_t* out, const Channels& channels) {
        out[0] = static_cast<uint8_t>(channels.blue);
        out[1] = static_cast<uint8_t>(channels.green);
        out[2] = static_cast<uint8_t>(channels.red);
        return out + 3;
    }
};

struct LanesToRgb565 {
    const uint32_t redBlue = kRuntimeRedBlue565;
    const uint32_t green = kRuntimeGreen565;

    // The lanes lie so that blue and red move to their places together.
    uint32_t pixel(uint32_t lanes) const { return (lanes >> 3 & redBlue) | (lanes >> 19 & green); }
    uint8_t* put(uint8_t* out, const FourLanes& lanes) const {
        storeWord(out, pixel(lanes.a) | pixel(lanes.b) << 16);
        storeWord(out + 4, pixel(lanes.c) | pixel(lanes.d) << 16);
        return out + 8;
    }
    static uint8_t* putOne(uint8_t* out, const Channels& channels) {
        storeHalf(out,
                  (channels.red & 0xF8) << 8 | (channels.green & 0xFC) << 3 | (channels.blue & 0xFF) >> 3);
        return out + 2;
    }
};

// Four columns that make four pixels, and the chroma pairs that cover them.
template <uint32_t... kColumn>
struct Columns {};

// kShift: 0 = a chroma pair for each column, 1 = for two columns.
template <uint32_t kShift>
struct EveryColumn {
    static constexpr uint32_t pairOf(uint32_t column) { return column >> kShift; }
};
// The first three of every four; where chroma is shared, one pair serves all of them.
template <uint32_t kShift>
struct ThreeQuarters {
    static constexpr uint32_t pairOf(uint32_t column) { return kShift == 0 ? column : column / 4 * 2; }
};

// By value everywhere: the places stay in registers.
inline uint32_t chromaLanes(const uint8_t* cb, const uint8_t* cr, uint32_t pair) {
    return kChromaLanes.cb[cb[pair]] + kChromaLanes.cr[cr[pair]];
}

// What a chroma pair adds to the channels, in whole levels: 4 Y is a whole number of them, so that the shares
// may be rounded down before the sum is.
struct LevelShares {
    explicit LevelShares(uint32_t lanes) {
        const auto lane = [](uint32_t word, uint32_t at) {
            return static_cast<int32_t>(word << (23 - at)) >> 23;
        };
        blue = lane(lanes, 0);
        const uint32_t withoutBlue = lanes - static_cast<uint32_t>(blue);
        red = lane(withoutBlue, kRedLane);
        const uint32_t greenAlone = withoutBlue - (static_cast<uint32_t>(red) << kRedLane);
        green = static_cast<int32_t>(greenAlone) >> (kGreenLane + 2);
    }
    int32_t red, green, blue;
};

// Into 0..255, in the lowest byte.
inline uint32_t clampedLevel(int32_t level) {
    return static_cast<uint32_t>((level & ~255) == 0 ? level : ~(level >> 31));
}

template <class Format>
inline uint8_t* putClamped(uint8_t* out, int32_t level, const LevelShares& shares) {
    return Format::putOne(out, {clampedLevel(level + shares.red), clampedLevel(level + shares.green),
                                clampedLevel(level + shares.blue)});
}

// Four pixels of which a channel has to be clamped.
template <class Format, class Pairs, uint32_t kA, uint32_t kB, uint32_t kC, uint32_t kD>
[[gnu::noinline]] uint8_t* convertClamped(const uint8_t* y, const uint8_t* cb, const uint8_t* cr,
                                          uint8_t* out) {
    const auto shares = [=](uint32_t column) {
        return LevelShares(chromaLanes(cb, cr, Pairs::pairOf(column)));
    };
    const LevelShares a = shares(kA);
    const LevelShares b = Pairs::pairOf(kB) == Pairs::pairOf(kA) ? a : shares(kB);
    const LevelShares c = Pairs::pairOf(kC) == Pairs::pairOf(kB) ? b : shares(kC);
    const LevelShares d = Pairs::pairOf(kD) == Pairs::pairOf(kC) ? c : shares(kD);
    out = putClamped<Format>(out, y[kA], a);
    out = putClamped<Format>(out, y[kB], b);
    out = putClamped<Format>(out, y[kC], c);
    return putClamped<Format>(out, y[kD], d);
}

template <class Format, class Pairs, uint32_t kA, uint32_t kB, uint32_t kC, uint32_t kD>
inline uint8_t* convertFour(const Format& format, uint32_t lumaLanes, const uint8_t* y, const uint8_t* cb,
                            const uint8_t* cr, uint8_t* out, Columns<kA, kB, kC, kD>) {
    const uint32_t chromaA = chromaLanes(cb, cr, Pairs::pairOf(kA));
    const uint32_t chromaB =
        Pairs::pairOf(kB) == Pairs::pairOf(kA) ? chromaA : chromaLanes(cb, cr, Pairs::pairOf(kB));
    const uint32_t chromaC =
        Pairs::pairOf(kC) == Pairs::pairOf(kB) ? chromaB : chromaLanes(cb, cr, Pairs::pairOf(kC));
    const uint32_t chromaD =
        Pairs::pairOf(kD) == Pairs::pairOf(kC) ? chromaC : chromaLanes(cb, cr, Pairs::pairOf(kD));
    const FourLanes lanes = {y[kA] * lumaLanes + chromaA, y[kB] * lumaLanes + chromaB,
                             y[kC] * lumaLanes + chromaC, y[kD] * lumaLanes + chromaD};
    if (((lanes.a | lanes.b | lanes.c | lanes.d) & kLaneGuards) == 0) return format.put(out, lanes);
    return convertClamped<Format, Pairs, kA, kB, kC, kD>(y, cb, cr, out);
}

// A row of which every kColumns columns make sizeof...(Fours) times four pixels.
template <class Format, class Pairs, uint32_t kColumns, class... Fours>
inline uint8_t* convertRow(const DecoderContext& context, const SourceRow& row, uint8_t* out,
                           Fours... fours) {
    const Format format;
    const uint32_t lumaLanes = kRuntimeLumaLanes;
    const uint8_t* y = row.y;
    const uint8_t* cb = row.cb;
    const uint8_t* cr = row.cr;
    for (const uint8_t* const end = y + context.scaledWidth; y != end; y += kColumns) {
        ((out = convertFour<Format, Pairs>(format, lumaLanes, y, cb, cr, out, fours)), ...);
        cb += Pairs::pairOf(kColumns);
        cr += Pairs::pairOf(kColumns);
    }
    return out;
}

template <class Format, uint32_t kShift>
uint8_t* scalarExactRow(const DecoderContext& context, const SourceRow& row, uint8_t* out) {
    return convertRow<Format, EveryColumn<kShift>, 8>(context, row, out, Columns<0, 1, 2, 3>(),
                                                      Columns<4, 5, 6, 7>());
}

template <class Format, uint32_t kShift>
uint8_t* scalarThreeQuarterRow(const DecoderContext& context, const SourceRow& row, uint8_t* out) {
    return convertRow<Format, ThreeQuarters<kShift>, 16>(context, row, out, Columns<0, 1, 2, 4>(),
                                                         Columns<5, 6, 8, 9>(), Columns<10, 12, 13, 14>());
}

// By columns per chroma sample, as a shift, and by pixel format (RGB565, 24 bit).
struct Scaled {
    uint32_t columns;  // taken at a time
    RowConverter converters[2][2];
};
constexpr Scaled kByScaling[] = {
    {8,
     {{scalarExactRow<LanesToRgb565, 0>, scalarExactRow<LanesToBgr24, 0>},
      {scalarExactRow<LanesToRgb565, 1>, scalarExactRow<LanesToBgr24, 1>}}},
    {16,
     {{scalarThreeQuarterRow<LanesToRgb565, 0>, scalarThreeQuarterRow<LanesToBgr24, 0>},
      {scalarThreeQuarterRow<LanesToRgb565, 1>, scalarThreeQuarterRow<LanesToBgr24, 1>}}},
};

// Whether every row of the picture starts at a whole word.
bool inWholeWords(const DecoderContext& context) {
    const uintptr_t start = reinterpret_cast<uintptr_t>(context.cursors.outputCursor);
    return start % 4 == 0 && context.targetRowBytes % 4 == 0;
}

}  // namespace

RowConverter scalarRowConverter(const DecoderContext& context) {
    if (context.rowScaling == kScalingGeneral || !inWholeWords(context)) return context.convertRow;
    const Scaled& scaled = kByScaling[context.rowScaling];
    if (context.scaledWidth % scaled.columns != 0) return context.convertRow;
    return scaled.converters[context.samplingKind == 2 ? 0 : 1][context.mode < 7 ? 0 : 1];
}

}  // namespace jpeg
