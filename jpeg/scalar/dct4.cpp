// The 4 x 4 inverse DCT without what is known to be zero, see scalar/dct8.cpp.
//
// Sums are those of the portable transform, which wrap, in another order. One thing needs a bound: a column
// without anything below its first coefficient X is 4 X there, and (X << 14) >> 12 here.
#include "jpeg/scalar/dct4.h"

#include "jpeg/inverse_dct.h"
#include "jpeg/scalar/words.h"
#include "jpeg/wrapping_words.h"

namespace jpeg {

namespace {

// Read at run time, so that they are multiplied by.
const volatile Word kFactors[] = {15137, 0u - 6270, 11893,     0u - 1730, 0u - 17799,
                                  8697,  7373,      0u - 4176, 0u - 4926, 20995};
struct Factors {
    const Word even2 = kFactors[0];
    const Word even6 = kFactors[1];
    const Word a5 = kFactors[2];
    const Word a7 = kFactors[3];
    const Word a3 = kFactors[4];
    const Word a1 = kFactors[5];
    const Word b3 = kFactors[6];
    const Word b7 = kFactors[7];
    const Word b5 = kFactors[8];
    const Word b1 = kFactors[9];
};

struct FourWords {
    Word at[4];
};

// kInputs: the first inputs, of which any may not be 0; the one in the middle has no part in it.
template <uint32_t kInputs>
inline FourWords transform(const Factors& f, const int32_t* values, Word bias) {
    const auto x = [values](uint32_t index) { return static_cast<Word>(values[index]); };
    const Word t0 = (x(0) << 14) + bias;
    Word t2 = 0;
    Word oddA = x(1) * f.a1;
    Word oddB = x(1) * f.b1;
    if constexpr (kInputs >= 4) {
        t2 = x(2) * f.even2;
        oddA += x(3) * f.a3;
        oddB += x(3) * f.b3;
    }
    if constexpr (kInputs == 8) {
        t2 += x(6) * f.even6;
        oddA += x(5) * f.a5 + x(7) * f.a7;
        oddB += x(5) * f.b5 + x(7) * f.b7;
    }
    const Word sum = t0 + t2;
    const Word difference = t0 - t2;
    return {{sum + oddB, difference + oddA, difference - oddA, sum - oddB}};
}

template <uint32_t kRows>
inline void transformColumn(const Factors& f, int32_t* x, int32_t* out) {
    const FourWords values = transform<kRows>(f, x, 0);
    for (uint32_t row = 0; row < 4; ++row)
        out[8 * row] = static_cast<int32_t>(shiftRight(values.at[row], 12));
    clearFirst<kRows>(x);
}

inline void flatColumn(int32_t* x, int32_t* out) {
    const int32_t flat = x[0] * 4;
    for (uint32_t row = 0; row < 4; ++row) out[8 * row] = flat;
    x[0] = 0;
}

constexpr Word kBias = 128u << 19;  // the level shift
constexpr Word kClampBits = 0xF8000000;

inline uint8_t clampedByte(Word biased) {
    const int32_t sample = static_cast<int32_t>(shiftRight(biased - kBias, 19)) + 128;
    return static_cast<uint8_t>(sample < 0 ? 0 : sample > 255 ? 255 : sample);
}

[[gnu::noinline]] void storeClampedRow(uint8_t* out, const FourWords& values) {
    for (uint32_t i = 0; i < 4; ++i) out[i] = clampedByte(values.at[i]);
}

template <uint32_t kColumns>
inline void transformRow(const Factors& f, const int32_t* y, uint8_t* out) {
    const FourWords values = transform<kColumns>(f, y, kBias);
    const Word* const v = values.at;
    if (((v[0] | v[1] | v[2] | v[3]) & kClampBits) != 0) return storeClampedRow(out, values);
    storeWord(out, v[0] >> 19 | (v[1] >> 11 & 0xFF00) | (v[2] >> 3 & 0xFF0000) | (v[3] << 5 & 0xFF000000));
}

template <uint32_t kColumns>
void transformBlock(ScalarBlock& block, uint8_t* out, uint32_t stride) {
    const Factors f;
    int32_t work[4 * 8];
    uint32_t sets = block.columns | 1;
    for (uint32_t column = 0; column < kColumns; ++column, sets >>= 1) {
        int32_t* const x = block.values + 8 * column;
        if ((sets & kSetOfRows4To7) != 0) {
            transformColumn<8>(f, x, work + column);
        } else if ((sets & kSetOfRows1To3) != 0) {
            transformColumn<4>(f, x, work + column);
        } else {
            flatColumn(x, work + column);
        }
    }
    for (const int32_t* y = work; y != work + 4 * 8; y += 8, out += stride) transformRow<kColumns>(f, y, out);
}

// Nothing but the first coefficient.
void fillBlock(ScalarBlock& block, uint8_t* out, uint32_t stride) {
    const uint32_t word = flatSample4(static_cast<uint32_t>(block.values[0])) * 0x01010101u;
    block.values[0] = 0;
    for (uint32_t row = 0; row < 4; ++row, out += stride) storeWord(out, word);
}

}  // namespace

void scalarDct4(ScalarBlock& block, uint8_t* out, uint32_t stride) {
    if (block.columns == 0) return fillBlock(block, out, stride);
    const uint32_t columns = columnsOf(block);
    if (columns >= 1u << 4) {
        transformBlock<8>(block, out, stride);
    } else if (columns >= 1u << 2) {
        transformBlock<4>(block, out, stride);
    } else {
        transformBlock<2>(block, out, stride);
    }
}

}  // namespace jpeg
