// The row converters of the fast engines: 32 pixels at a time.
//
// Bytes become 16-bit lanes half by half, as the interleaving instructions give them: of every 32 pixels the
// first vector holds 0..7 and 16..23, the second 8..15 and 24..31, and packing puts them back in order.
#pragma once
#include "jpeg/converters.h"
#include "jpeg/x86/wide_pixels.h"

namespace jpeg {

// kShift: columns that share a chroma pair, as a shift. Where every fourth column is dropped, the first pair
// of four columns serves the other three.
template <class Lanes, template <class, bool> class Format, uint32_t kShift, bool kDropFourth>
class WideRow {
  public:
    static constexpr uint32_t kColumns = 32;  // at a time

    static uint8_t* convert(const DecoderContext& context, const SourceRow& row, uint8_t* out) {
        const uint32_t last = context.scaledWidth - kColumns;
        for (uint32_t x = 0; x < last; x += kColumns) put(row, x, out + placeOf(x));
        // The last ones reach back into those before them where the width is no multiple.
        put(row, last, out + placeOf(last));
        return out + placeOf(context.scaledWidth);
    }

  private:
    using Wide = typename Lanes::Wide;
    using Half = typename Lanes::Half;
    using Pixels = Format<Lanes, kDropFourth>;
    using Color = WideColor<Lanes>;

    static constexpr uint32_t placeOf(uint32_t column) {
        return (kDropFourth ? column / 4 * 3 : column) * Pixels::kBytes;
    }

    static void put(const SourceRow& row, uint32_t x, uint8_t* out) {
        const Wide zero = Lanes::all16(0);
        const Wide y = Lanes::loadBytes(row.y + x);
        const Wide first = Lanes::interleaveLow8(y, zero);
        const Wide second = Lanes::interleaveHigh8(y, zero);
        if constexpr (kShift == 0) {
            const Wide cb = Lanes::loadBytes(row.cb + x);
            const Wide cr = Lanes::loadBytes(row.cr + x);
            Pixels::put(out,
                        Color::channels(first, Color::shares(Lanes::interleaveLow8(cb, zero),
                                                             Lanes::interleaveLow8(cr, zero))),
                        Color::channels(second, Color::shares(Lanes::interleaveHigh8(cb, zero),
                                                              Lanes::interleaveHigh8(cr, zero))));
        } else {
            const typename Color::Channels shares = Color::shares(Lanes::widen8(loadHalf(row.cb + x / 2)),
                                                                  Lanes::widen8(loadHalf(row.cr + x / 2)));
            const Wide red = spread(shares.red);
            const Wide green = spread(shares.green);
            const Wide blue = spread(shares.blue);
            Pixels::put(out,
                        Color::channels(
                            first, {Lanes::interleaveLow16(red, red), Lanes::interleaveLow16(green, green),
                                    Lanes::interleaveLow16(blue, blue)}),
                        Color::channels(
                            second, {Lanes::interleaveHigh16(red, red), Lanes::interleaveHigh16(green, green),
                                     Lanes::interleaveHigh16(blue, blue)}));
        }
    }

    // The shares from which interleaving with themselves makes those of the columns.
    static Wide spread(Wide shares) {
        if constexpr (kDropFourth) return Lanes::repeatEven16(shares);
        return shares;
    }
    static Half loadHalf(const uint8_t* samples) {
        return _mm_loadu_si128(reinterpret_cast<const Half*>(samples));
    }
};

// The fast converter that does what the context's does; null where there is none.
template <class Lanes>
RowConverter wideRowConverter(const DecoderContext& context) {
    struct Formats {
        RowConverter rgb565, bgr24;
    };
    // By scaling and by whether columns share their chroma.
    static constexpr Formats kConverters[2][2] = {
        {{WideRow<Lanes, WideRgb565, 0, false>::convert, WideRow<Lanes, WideBgr24, 0, false>::convert},
         {WideRow<Lanes, WideRgb565, 1, false>::convert, WideRow<Lanes, WideBgr24, 1, false>::convert}},
        {{WideRow<Lanes, WideRgb565, 0, true>::convert, WideRow<Lanes, WideBgr24, 0, true>::convert},
         {WideRow<Lanes, WideRgb565, 1, true>::convert, WideRow<Lanes, WideBgr24, 1, true>::convert}}};
    static_assert(kScalingExact == 0 && kScalingThreeQuarter == 1);
    if (context.rowScaling > kScalingThreeQuarter || context.scaledWidth < 32) return nullptr;
    const Formats& formats = kConverters[context.rowScaling][context.samplingKind == 2 ? 0 : 1];
    return context.mode < 7 ? formats.rgb565 : formats.bgr24;
}

}  // namespace jpeg
