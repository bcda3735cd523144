// Colours and pixel formats of the fast row converters, in 16-bit arithmetic.
//
// A channel is clampQuarter(4 Y + share), which is Y + floor(share / 4) clamped to a byte. A share is a
// centred chroma sample times a constant, rounded to the nearest integer (which is never a tie); each
// constant is taken as a whole number plus a fraction of 32768ths that rounds the same for all 256 samples.
#pragma once
#include <cstring>

#include "jpeg/pixel_formats.h"

namespace jpeg {

template <class Lanes>
struct WideColor {
    using Wide = typename Lanes::Wide;

    struct Channels {
        Wide red, green, blue;
    };

    // What the chroma samples add to the luma.
    static Channels shares(Wide cb, Wide cr) {
        const Wide centre = Lanes::all16(128);
        const Wide b = Lanes::sub16(cb, centre);
        const Wide r = Lanes::sub16(cr, centre);
        const Wide red = share(r, 6, -12845);                                       // 5.608
        const Wide blue = share(b, 7, 2884);                                        // 7.088
        const Wide green = Lanes::add16(share(b, -1, -12339), share(r, -3, 4701));  // -1.37656, -2.856544
        return {quarter(red), quarter(green), quarter(blue)};
    }

    // Not clamped yet.
    static Channels channels(Wide y, const Channels& shares) {
        return {Lanes::add16(y, shares.red), Lanes::add16(y, shares.green), Lanes::add16(y, shares.blue)};
    }

  private:
    static Wide share(Wide sample, int16_t whole, int16_t fraction) {
        return Lanes::add16(Lanes::multiply16(sample, Lanes::all16(whole)),
                            Lanes::multiplyRounded16(sample, Lanes::all16(fraction)));
    }
    static Wide quarter(Wide share) { return Lanes::template right16<2>(share); }
};

// Stores of four pieces of a vector pair, each kBytes long, in the order of the pixels: the halves that hold
// pixels 0.., 8.., 16.. and 24... The pieces overlap; only the last is stored to the byte.
template <class Lanes>
struct WidePieces {
    using Half = typename Lanes::Half;

    static void store(uint8_t* out, Half bytes) { _mm_storeu_si128(reinterpret_cast<Half*>(out), bytes); }

    template <uint32_t kBytes>
    static void storeExactly(uint8_t* out, Half bytes) {
        static_assert(kBytes == 9 || kBytes == 12 || kBytes == 16);
        if constexpr (kBytes == 16) {
            store(out, bytes);
        } else {
            _mm_storel_epi64(reinterpret_cast<Half*>(out), bytes);
            const int32_t rest = _mm_extract_epi32(bytes, 2);
            std::memcpy(out + 8, &rest, kBytes - 8);
        }
    }
};

// Pixel formats. put() takes the channels of pixels 0..7 | 16..23 and 8..15 | 24..31 and writes all 32, or
// the 24 that are left when every fourth is dropped.
template <class Lanes, bool kDropFourth>
struct WideRgb565 {
    using Wide = typename Lanes::Wide;
    using Channels = typename WideColor<Lanes>::Channels;
    using Pieces = WidePieces<Lanes>;
    static constexpr uint32_t kBytes = 2;

    static void put(uint8_t* out, const Channels& first, const Channels& second) {
        constexpr uint32_t kPiece = (kDropFourth ? 6 : 8) * kBytes;
        const Wide words = pixels(first);
        const Wide others = pixels(second);
        Pieces::store(out, Lanes::low(words));
        Pieces::store(out + kPiece, Lanes::low(others));
        Pieces::store(out + 2 * kPiece, Lanes::high(words));
        Pieces::template storeExactly<kPiece>(out + 3 * kPiece, Lanes::high(others));
    }

  private:
    static Wide pixels(const Channels& channels) {
        const Wide red = Lanes::bits(byte(channels.red), Lanes::all16(0xF8));
        const Wide green = Lanes::bits(byte(channels.green), Lanes::all16(0xFC));
        const Wide blue = Lanes::template right16<3>(byte(channels.blue));
        const Wide words = Lanes::either(
            blue, Lanes::either(Lanes::template left16<3>(green), Lanes::template left16<8>(red)));
        if constexpr (!kDropFourth) return words;
        return Lanes::shuffle8(words, _mm_setr_epi8(0, 1, 2, 3, 4, 5, 8, 9, 10, 11, 12, 13, -1, -1, -1, -1));
    }
    static Wide byte(Wide channel) {
        return Lanes::max16(Lanes::min16(channel, Lanes::all16(255)), Lanes::all16(0));
    }
};

template <class Lanes, bool kDropFourth>
struct WideBgr24 {
    using Wide = typename Lanes::Wide;
    using Half = typename Lanes::Half;
    using Channels = typename WideColor<Lanes>::Channels;
    using Pieces = WidePieces<Lanes>;
    static constexpr uint32_t kBytes = 3;

    static void put(uint8_t* out, const Channels& first, const Channels& second) {
        const Wide blue = Lanes::pack16(first.blue, second.blue);
        const Wide green = Lanes::pack16(first.green, second.green);
        const Wide red = Lanes::pack16(first.red, second.red);
        const Wide zero = Lanes::all16(0);
        const Wide lowBg = Lanes::interleaveLow8(blue, green);  // pixels 0..7 | 16..23
        const Wide lowR = Lanes::interleaveLow8(red, zero);
        const Wide highBg = Lanes::interleaveHigh8(blue, green);  // pixels 8..15 | 24..31
        const Wide highR = Lanes::interleaveHigh8(red, zero);
        const Wide a = kept(Lanes::interleaveLow16(lowBg, lowR));     // 0..3 | 16..19
        const Wide b = kept(Lanes::interleaveHigh16(lowBg, lowR));    // 4..7 | 20..23
        const Wide c = kept(Lanes::interleaveLow16(highBg, highR));   // 8..11 | 24..27
        const Wide d = kept(Lanes::interleaveHigh16(highBg, highR));  // 12..15 | 28..31
        constexpr uint32_t kPiece = (kDropFourth ? 3 : 4) * kBytes;
        Pieces::store(out, Lanes::low(a));
        Pieces::store(out + kPiece, Lanes::low(b));
        Pieces::store(out + 2 * kPiece, Lanes::low(c));
        Pieces::store(out + 3 * kPiece, Lanes::low(d));
        Pieces::store(out + 4 * kPiece, Lanes::high(a));
        Pieces::store(out + 5 * kPiece, Lanes::high(b));
        Pieces::store(out + 6 * kPiece, Lanes::high(c));
        Pieces::template storeExactly<kPiece>(out + 7 * kPiece, Lanes::high(d));
    }

  private:
    // Four pixels of four bytes each, without the fourth bytes.
    static Wide kept(Wide pixels) {
        return Lanes::shuffle8(pixels, _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1));
    }
};

}  // namespace jpeg
