// The row converters of the fast engines: 16 pixels at a time, in 16-bit arithmetic.
//
// A channel is clampQuarter(4 Y + share), which is Y + floor(share / 4) clamped to a byte. A share is a
// centred chroma sample times a constant, rounded to the nearest integer (which is never a tie); each
// constant is taken as a whole number plus a fraction of 32768ths that rounds the same for all 256 samples.
#pragma once
#include <cstring>

#include "jpeg/converters.h"
#include "jpeg/pixel_formats.h"

namespace jpeg {

template <class Lanes>
struct WideColor {
    using Wide = typename Lanes::Wide;
    using Half = typename Lanes::Half;

    // 16 pixels in lanes of 16 bits; not clamped yet.
    struct Channels {
        Wide red, green, blue;
    };

    static Channels channels(Half y, Half cb, Half cr) {
        const Wide luma = Lanes::widen8(y);
        const Wide centre = Lanes::all16(128);
        const Wide b = Lanes::sub16(Lanes::widen8(cb), centre);
        const Wide r = Lanes::sub16(Lanes::widen8(cr), centre);
        const Wide red = share(r, 6, -12845);                                       // 5.608
        const Wide blue = share(b, 7, 2884);                                        // 7.088
        const Wide green = Lanes::add16(share(b, -1, -12339), share(r, -3, 4701));  // -1.37656, -2.856544
        return {channel(luma, red), channel(luma, green), channel(luma, blue)};
    }

  private:
    static Wide share(Wide sample, int16_t whole, int16_t fraction) {
        return Lanes::add16(Lanes::multiply16(sample, Lanes::all16(whole)),
                            Lanes::multiplyRounded16(sample, Lanes::all16(fraction)));
    }
    static Wide channel(Wide luma, Wide share) {
        return Lanes::add16(luma, Lanes::template right16<2>(share));
    }
};

// Pixel formats; put() writes 16 pixels, or 12 where every fourth is dropped, and up to 16 bytes more.
template <class Lanes>
struct WideRgb565 {
    using Wide = typename Lanes::Wide;
    using Half = typename Lanes::Half;
    static constexpr uint32_t kBytes = 2;

    template <bool kDropFourth>
    static void put(uint8_t* out, const typename WideColor<Lanes>::Channels& channels) {
        const Wide red = Lanes::bits(byte(channels.red), Lanes::all16(0xF8));
        const Wide green = Lanes::bits(byte(channels.green), Lanes::all16(0xFC));
        const Wide blue = Lanes::template right16<3>(byte(channels.blue));
        const Wide pixels = Lanes::either(
            blue, Lanes::either(Lanes::template left16<3>(green), Lanes::template left16<8>(red)));
        if constexpr (kDropFourth) {
            const Half kept = _mm_setr_epi8(0, 1, 2, 3, 4, 5, 8, 9, 10, 11, 12, 13, -1, -1, -1, -1);
            const Wide squeezed = Lanes::shuffle8(pixels, kept);
            storeHalf(out, Lanes::low(squeezed));
            storeHalf(out + 12, Lanes::high(squeezed));
        } else {
            Lanes::store(out, pixels);
        }
    }

  private:
    static Wide byte(Wide channel) {
        return Lanes::max16(Lanes::min16(channel, Lanes::all16(255)), Lanes::all16(0));
    }
    static void storeHalf(uint8_t* out, Half bytes) { _mm_storeu_si128(reinterpret_cast<Half*>(out), bytes); }
};

template <class Lanes>
struct WideBgr24 {
    using Wide = typename Lanes::Wide;
    using Half = typename Lanes::Half;
    static constexpr uint32_t kBytes = 3;

    template <bool kDropFourth>
    static void put(uint8_t* out, const typename WideColor<Lanes>::Channels& channels) {
        const Wide blueRed = Lanes::pack16(channels.blue, channels.red);
        const Wide greenNone = Lanes::pack16(channels.green, Lanes::all16(0));
        const Wide blueGreen = Lanes::interleaveLow8(blueRed, greenNone);
        const Wide redNone = Lanes::interleaveHigh8(blueRed, greenNone);
        const Half kept = _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
        const Wide even = Lanes::shuffle8(Lanes::interleaveLow16(blueGreen, redNone), kept);  // 0..3 | 8..11
        const Wide odd = Lanes::shuffle8(Lanes::interleaveHigh16(blueGreen, redNone), kept);  // 4..7 | 12..15
        constexpr uint32_t kStep = (kDropFourth ? 3 : 4) * kBytes;
        storeHalf(out, Lanes::low(even));
        storeHalf(out + kStep, Lanes::low(odd));
        storeHalf(out + 2 * kStep, Lanes::high(even));
        storeHalf(out + 3 * kStep, Lanes::high(odd));
    }

  private:
    static void storeHalf(uint8_t* out, Half bytes) { _mm_storeu_si128(reinterpret_cast<Half*>(out), bytes); }
};

// kShift: columns that share a chroma pair, as a shift. Where every fourth column is dropped, the first pair
// of four columns serves the other three.
template <class Lanes, template <class> class Pixel, uint32_t kShift, bool kDropFourth>
class WideRow {
  public:
    static constexpr uint32_t kColumns = 16;  // at a time

    static uint8_t* convert(const DecoderContext& context, const SourceRow& row, uint8_t* out) {
        const uint32_t last = context.scaledWidth - kColumns;
        for (uint32_t x = 0; x < last; x += kColumns) put(row, x, out + placeOf(x));
        // The last 16 again, so that their surplus does not leave the row.
        uint8_t pixels[kColumns * Format::kBytes + 16];
        put(row, last, pixels);
        std::memcpy(out + placeOf(last), pixels, placeOf(kColumns));
        return out + placeOf(context.scaledWidth);
    }

  private:
    using Half = typename Lanes::Half;
    using Format = Pixel<Lanes>;

    static constexpr uint32_t placeOf(uint32_t column) {
        return (kDropFourth ? column / 4 * 3 : column) * Format::kBytes;
    }
    static void put(const SourceRow& row, uint32_t x, uint8_t* out) {
        Format::template put<kDropFourth>(
            out, WideColor<Lanes>::channels(load(row.y + x), chroma(row.cb, x), chroma(row.cr, x)));
    }
    static Half chroma(const uint8_t* samples, uint32_t x) {
        if constexpr (kShift == 0) {
            return load(samples + x);
        } else {
            const Half pairs = _mm_loadl_epi64(reinterpret_cast<const Half*>(samples + (x >> kShift)));
            if constexpr (kDropFourth) {
                return _mm_shuffle_epi8(pairs, _mm_setr_epi8(0, 0, 0, 0, 2, 2, 2, 2, 4, 4, 4, 4, 6, 6, 6, 6));
            }
            return _mm_unpacklo_epi8(pairs, pairs);
        }
    }
    static Half load(const uint8_t* samples) {
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
    if (context.rowScaling > kScalingThreeQuarter || context.scaledWidth < 16) return nullptr;
    const Formats& formats = kConverters[context.rowScaling][context.samplingKind == 2 ? 0 : 1];
    return context.mode < 7 ? formats.rgb565 : formats.bgr24;
}

}  // namespace jpeg
