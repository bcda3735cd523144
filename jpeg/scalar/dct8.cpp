// The 8 x 8 inverse DCT without what is known to be zero, and with two samples in a word at the end.
//
// Columns first. The block tells which columns hold anything, and whether that lies in row 0, in the upper or
// in the lower half; there are transforms of a column for 1, 2, 4 and 8 coefficients, and of a row for 1, 2,
// 3, 4 and 8 columns. A term that is left out is one that the portable transform computes as 0.
//
// The constants of a sum are divided by what they have in common, and the shift behind it is shortened by as
// much: the portable transform's products and shifts, exact as long as nothing leaves 32 bits.
//
// A row's eight values are made two by two: the low half of a word holds one, the high half another, and sums
// and differences of words are those of both. A low value that is negative takes one from its neighbour; it
// is then clamped, and the clamping undoes that. With 2055 added, the level shift and nearly the rounding, a
// value needs clamping unless it is in 0..4095 after the rest of the rounding: one more for values from 2055
// on, which is bit 11, since one more makes no difference to those from 2048 on.
//
// A value is at most 4 times the sum of all coefficients' absolute values and less than 100 more, by the
// transforms' constants and roundings. kDct8MaxMagnitude keeps it within 16 bits, and everything before it
// within 32.
#include "jpeg/scalar/dct8.h"

#include "jpeg/inverse_dct.h"
#include "jpeg/scalar/words.h"

namespace jpeg {

namespace {

// The constants, read at run time: the compiler would make shifts and sums of each product otherwise, three
// or four instructions where one multiplies.
constexpr int32_t kBias = 2055;
const volatile int32_t kFactors[] = {181, 473, 196, 50, 251, 213, 142, kBias << 8};
struct Factors {
    const int32_t k181 = kFactors[0];
    const int32_t k473 = kFactors[1];
    const int32_t k196 = kFactors[2];
    const int32_t k50 = kFactors[3];
    const int32_t k251 = kFactors[4];
    const int32_t k213 = kFactors[5];
    const int32_t k142 = kFactors[6];
    const int32_t bias = kFactors[7];
};

// One column of 8 workspace rows. kRows: the coefficients that may not be 0.
template <uint32_t kRows>
inline void transformColumn(const Factors& f, int32_t* x, int32_t* out) {
    if constexpr (kRows == 1) {
        const int32_t flat = x[0] * f.k181 >> 6;
        x[0] = 0;
        out[0] = out[8] = out[16] = out[24] = out[32] = out[40] = out[48] = out[56] = flat;
        return;
    }
    int32_t e0, e1, e2, e3;
    int32_t p0, p1, p2, p3;
    if constexpr (kRows <= 4) {
        const int32_t a = x[0] * f.k181 >> 6;
        const int32_t b0 = kRows == 4 ? x[2] * f.k473 >> 7 : 0;
        const int32_t b1 = kRows == 4 ? x[2] * 49 >> 5 : 0;
        e0 = a + b0;
        e1 = a + b1;
        e2 = a - b1;
        e3 = a - b0;
        p0 = x[1] * 25 >> 5;
        p1 = kRows == 4 ? x[3] * -71 >> 5 : 0;
        p2 = kRows == 4 ? x[3] * f.k213 >> 6 : 0;
        p3 = x[1] * f.k251 >> 6;
    } else {
        const int32_t a0 = (x[0] + x[4]) * f.k181 >> 6;
        const int32_t a1 = (x[0] - x[4]) * f.k181 >> 6;
        const int32_t b0 = (x[2] * f.k473 + x[6] * f.k196) >> 7;
        const int32_t b1 = (x[2] * f.k196 - x[6] * f.k473) >> 7;
        e0 = a0 + b0;
        e1 = a1 + b1;
        e2 = a1 - b1;
        e3 = a0 - b0;
        p0 = (x[1] * f.k50 - x[7] * f.k251) >> 6;
        p1 = (x[5] * f.k213 - x[3] * f.k142) >> 6;
        p2 = (x[3] * f.k213 + x[5] * f.k142) >> 6;
        p3 = (x[1] * f.k251 + x[7] * f.k50) >> 6;
    }
    clearFirst<kRows>(x);
    const int32_t s0 = p0 + p1;
    const int32_t s3 = p3 + p2;
    const int32_t d0 = p0 - p1;
    const int32_t d3 = p3 - p2;
    const int32_t o1 = (d3 - d0) * f.k181 >> 8;
    const int32_t o2 = (d3 + d0) * f.k181 >> 8;
    out[0] = e0 + s3;
    out[8] = e1 + o2;
    out[16] = e2 + o1;
    out[24] = e3 + s0;
    out[32] = e3 - s0;
    out[40] = e2 - o1;
    out[48] = e1 - o2;
    out[56] = e0 - s3;
}

constexpr uint32_t kRoundingBits = 0x08000800;
constexpr uint32_t kClampBits = 0xF000F000;
constexpr uint32_t kSampleBits = 0x0FF00FF0;

inline uint32_t pairOf(int32_t low, int32_t high) {
    return static_cast<uint32_t>(low) + (static_cast<uint32_t>(high) << 16);
}

inline uint32_t rounded(uint32_t pair) {
    return pair + ((pair & kRoundingBits) >> 11);
}

inline uint8_t clampedByte(int32_t value) {
    const int32_t sample = (value + (value >= kBias ? 1 : 0)) >> 4;
    return static_cast<uint8_t>(sample < 0 ? 0 : sample > 255 ? 255 : sample);
}

inline uint32_t rotatedRight(uint32_t word, int bits) {
    return word >> bits | word << (32 - bits);
}

// A row from its pairs, of which only kSampleBits may be set: samples 0 and 2, 7 and 5, 3 and 1, 4 and 6.
// (One rotation at the end, in place of shifts by whole bytes before: that the compiler takes for a swap of
// bytes, and makes six instructions of it.)
inline void storeRow(uint8_t* out, uint32_t v02, uint32_t v75, uint32_t v31, uint32_t v46) {
    storeWord(out, rotatedRight(v02 | rotatedRight(v31, 8), 4));
    storeWord(out + 4, rotatedRight(v46 | rotatedRight(v75, 8), 4));
}

inline uint32_t clampedSamples(uint32_t pair) {
    const int32_t low = static_cast<int16_t>(pair);
    const int32_t high = static_cast<int32_t>(pair - static_cast<uint32_t>(low)) >> 16;
    return static_cast<uint32_t>(clampedByte(low) << 4) | static_cast<uint32_t>(clampedByte(high)) << 20;
}

// Of values of which some are to be clamped, before their rounding.
[[gnu::noinline]] void storeClampedRow(uint8_t* out, uint32_t v02, uint32_t v75, uint32_t v31, uint32_t v46) {
    storeRow(out, clampedSamples(v02), clampedSamples(v75), clampedSamples(v31), clampedSamples(v46));
}

// One row of samples. kColumns: the workspace columns that may not be 0.
template <uint32_t kColumns>
inline void transformRow(const Factors& f, const int32_t* y, uint8_t* out) {
    int32_t h0, h1, h2, h3;
    int32_t q0, q1, q2, q3;
    if constexpr (kColumns == 8) {
        const int32_t f0 = ((y[0] + y[4]) * f.k181 + f.bias) >> 8;
        const int32_t f1 = ((y[0] - y[4]) * f.k181 + f.bias) >> 8;
        const int32_t g0 = (y[2] * f.k196 - y[6] * f.k473) >> 9;
        const int32_t g1 = (y[2] * f.k473 + y[6] * f.k196) >> 9;
        h0 = f0 + g1;
        h1 = f1 + g0;
        h2 = f1 - g0;
        h3 = f0 - g1;
        q0 = (y[1] * f.k50 - y[7] * f.k251) >> 8;
        q1 = (y[5] * f.k213 - y[3] * f.k142) >> 8;
        q2 = (y[3] * f.k213 + y[5] * f.k142) >> 8;
        q3 = (y[1] * f.k251 + y[7] * f.k50) >> 8;
    } else {
        const int32_t flat = (y[0] * f.k181 + f.bias) >> 8;
        const int32_t g0 = kColumns >= 3 ? y[2] * 49 >> 7 : 0;
        const int32_t g1 = kColumns >= 3 ? y[2] * f.k473 >> 9 : 0;
        h0 = flat + g1;
        h1 = flat + g0;
        h2 = flat - g0;
        h3 = flat - g1;
        q0 = y[1] * 25 >> 7;
        q1 = kColumns == 4 ? y[3] * -71 >> 7 : 0;
        q2 = kColumns == 4 ? y[3] * f.k213 >> 8 : 0;
        q3 = y[1] * f.k251 >> 8;
    }
    const int32_t r0 = q0 - q1;
    const int32_t r1 = q3 - q2;
    const int32_t s0 = q0 + q1;
    const int32_t s3 = q3 + q2;
    const int32_t m1 = (r1 - r0) * f.k181 >> 8;
    const int32_t m2 = (r1 + r0) * f.k181 >> 8;

    const uint32_t outer = pairOf(h0, h2);
    const uint32_t inner = pairOf(h3, h1);
    const uint32_t outerOdd = pairOf(s3, m1);
    const uint32_t innerOdd = pairOf(s0, m2);
    const uint32_t v02 = rounded(outer + outerOdd);
    const uint32_t v75 = rounded(outer - outerOdd);
    const uint32_t v31 = rounded(inner + innerOdd);
    const uint32_t v46 = rounded(inner - innerOdd);
    if (((v02 | v75 | v31 | v46) & kClampBits) == 0) {
        storeRow(out, v02 & kSampleBits, v75 & kSampleBits, v31 & kSampleBits, v46 & kSampleBits);
    } else {
        storeClampedRow(out, outer + outerOdd, outer - outerOdd, inner + innerOdd, inner - innerOdd);
    }
}

// All samples of the row are alike.
template <>
inline void transformRow<1>(const Factors& f, const int32_t* y, uint8_t* out) {
    const uint32_t sample = clampedByte((y[0] * f.k181 + f.bias) >> 8);
    const uint32_t word = sample * 0x01010101u;
    storeWord(out, word);
    storeWord(out + 4, word);
}

// The workspace columns 0..kColumns - 1.
template <uint32_t kColumns>
inline void transformColumns(const Factors& f, ScalarBlock& block, int32_t* work) {
    uint32_t sets = block.columns | 1;
    for (uint32_t column = 0; column < kColumns; ++column, sets >>= 1) {
        int32_t* const x = block.values + 8 * column;
        if ((sets & kSetOfRows4To7) != 0) {
            transformColumn<8>(f, x, work + column);
        } else if ((sets & kSetOfRows1To3) != 0) {
            if ((x[2] | x[3]) != 0) {
                transformColumn<4>(f, x, work + column);
            } else {
                transformColumn<2>(f, x, work + column);
            }
        } else {
            transformColumn<1>(f, x, work + column);
        }
    }
}

template <uint32_t kColumns>
void transformBlock(ScalarBlock& block, uint8_t* out, uint32_t stride, uint32_t keptRows) {
    const Factors f;
    int32_t work[64];
    transformColumns<kColumns>(f, block, work);
    const uint32_t dropped = 4 - keptRows;
    for (const int32_t* y = work; y != work + 64; y += 8 * dropped, out += stride * dropped) {
        const int32_t* const end = y + 8 * keptRows;
        do {
            transformRow<kColumns>(f, y, out);
            y += 8;
            out += stride;
        } while (y != end);
    }
}

// Nothing but the first coefficient, of whatever size.
void fillBlock(ScalarBlock& block, uint8_t* out, uint32_t stride) {
    const uint32_t word = flatSample8(static_cast<uint32_t>(block.values[0])) * 0x01010101u;
    block.values[0] = 0;
    for (uint32_t row = 0; row < 8; ++row, out += stride) {
        storeWord(out, word);
        storeWord(out + 4, word);
    }
}

}  // namespace

void scalarDct8(ScalarBlock& block, uint8_t* out, uint32_t stride, uint32_t keptRows) {
    if (block.columns == 0) return fillBlock(block, out, stride);
    const uint32_t columns = columnsOf(block);
    if (columns >= 1u << 4) {
        transformBlock<8>(block, out, stride, keptRows);
    } else if (columns >= 1u << 3) {
        transformBlock<4>(block, out, stride, keptRows);
    } else if (columns >= 1u << 2) {
        transformBlock<3>(block, out, stride, keptRows);
    } else if (columns >= 1u << 1) {
        transformBlock<2>(block, out, stride, keptRows);
    } else {
        transformBlock<1>(block, out, stride, keptRows);
    }
}

}  // namespace jpeg
