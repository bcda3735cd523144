#include "jpeg/inverse_dct.h"

#include "jpeg/wrapping_words.h"

namespace jpeg {

namespace {

inline uint8_t clampToByte(int32_t value) {
    return static_cast<uint8_t>(value < 0 ? 0 : value > 255 ? 255 : value);
}

// Centred sample to byte.
inline uint8_t sampleByte(int32_t value) {
    return clampToByte(value + 128);
}

inline Word dequantise(const int32_t* coefficients, const uint32_t* quant, uint32_t place) {
    return static_cast<Word>(coefficients[place]) * quant[place];
}

// One pass of the 8-point transform. `kGain` multiplies the constants: the columns carry a gain of 4, so that
// their results keep two fractional bits, the rows none. x and out may be the same.
template <Word kGain>
inline void transform8(const Word* x, Word* out) {
    const Word a0 = shiftRight((x[0] + x[4]) * (362 * kGain), 9);
    const Word a1 = shiftRight((x[0] - x[4]) * (362 * kGain), 9);
    const Word b0 = shiftRight(x[2] * (473 * kGain) + x[6] * (196 * kGain), 9);
    const Word b1 = shiftRight(x[2] * (196 * kGain) - x[6] * (473 * kGain), 9);
    const Word e0 = a0 + b0;
    const Word e1 = a1 + b1;
    const Word e2 = a1 - b1;
    const Word e3 = a0 - b0;

    const Word p0 = shiftRight(x[1] * (100 * kGain) - x[7] * (502 * kGain), 9);
    const Word p1 = shiftRight(x[5] * (426 * kGain) - x[3] * (284 * kGain), 9);
    const Word p2 = shiftRight(x[3] * (426 * kGain) + x[5] * (284 * kGain), 9);
    const Word p3 = shiftRight(x[1] * (502 * kGain) + x[7] * (100 * kGain), 9);
    const Word s0 = p0 + p1;
    const Word s3 = p3 + p2;
    const Word d0 = p0 - p1;
    const Word d3 = p3 - p2;
    const Word o1 = shiftRight((d3 - d0) * 362, 9);  // a rotation by 45 degrees: no gain here
    const Word o2 = shiftRight((d3 + d0) * 362, 9);

    out[0] = e0 + s3;
    out[1] = e1 + o2;
    out[2] = e2 + o1;
    out[3] = e3 + s0;
    out[4] = e3 - s0;
    out[5] = e2 - o1;
    out[6] = e1 - o2;
    out[7] = e0 - s3;
}

// Divides by 16, halves away from zero.
inline int32_t roundSixteenth(Word value) {
    const bool negative = static_cast<int32_t>(value) < 0;
    return static_cast<int32_t>(negative ? value - 8 : value + 8) / 16;
}

// The 4-point transform of 8 inputs (the middle one has no part in it), scaled by 2 to the 14th.
inline void transform4(const Word* x, Word* out) {
    const Word t0 = x[0] << 14;
    const Word t2 = x[2] * 15137 - x[6] * 6270;
    const Word oddA = x[5] * 11893 - x[7] * 1730 - x[3] * 17799 + x[1] * 8697;
    const Word oddB = x[3] * 7373 - x[7] * 4176 - x[5] * 4926 + x[1] * 20995;
    out[0] = t0 + t2 + oddB;
    out[1] = t0 - t2 + oddA;
    out[2] = t0 - t2 - oddA;
    out[3] = t0 + t2 - oddB;
}

// What inverseDct2 needs of each coefficient, times 2 to the 17th, by row (vertical frequency) and column.
constexpr uint32_t kPrescale[64] = {131072, 118768, 65536, 41706, 65536, 27867, 65536, 23624,  //
                                    118768, 107619, 59384, 37791, 59384, 25251, 59384, 21407,  //
                                    65536,  59384,  32768, 20853, 32768, 13933, 32768, 11812,  //
                                    41706,  37791,  20853, 13270, 20853, 8867,  20853, 7517,   //
                                    65536,  59384,  32768, 20853, 32768, 13933, 32768, 11812,  //
                                    27867,  25251,  13933, 8867,  13933, 5925,  13933, 5023,   //
                                    65536,  59384,  32768, 20853, 32768, 13933, 32768, 11812,  //
                                    23624,  21407,  11812, 7517,  11812, 5023,  11812, 4258};

}  // namespace

void inverseDct8(uint8_t* out, const int32_t* coefficients, const uint32_t* quant, uint32_t stride) {
    Word work[64];
    for (uint32_t column = 0; column < 8; ++column) {
        const int32_t* c = coefficients + column;
        Word x[8] = {};
        if ((c[0] | c[8] | c[16] | c[24] | c[32] | c[40] | c[48] | c[56]) != 0) {
            for (uint32_t row = 0; row < 8; ++row) x[row] = dequantise(coefficients, quant, 8 * row + column);
            transform8<4>(x, x);
        }
        for (uint32_t row = 0; row < 8; ++row) work[8 * row + column] = x[row];
    }
    for (const Word* row = work; row < work + 64; row += 8, out += stride) {
        Word values[8];
        transform8<1>(row, values);
        for (uint32_t column = 0; column < 8; ++column)
            out[column] = sampleByte(roundSixteenth(values[column]));
    }
}

void inverseDct4(uint8_t* out, const int32_t* coefficients, const uint32_t* quant, uint32_t stride) {
    Word work[4][8];
    for (uint32_t column = 0; column < 8; ++column) {
        if (column == 4) continue;  // no part in the rows
        const int32_t* c = coefficients + column;
        if ((c[8] | c[16] | c[24] | c[40] | c[48] | c[56]) == 0) {
            const Word flat = dequantise(coefficients, quant, column) * 4;
            for (auto& row : work) row[column] = flat;
            continue;
        }
        Word x[8];
        for (uint32_t row = 0; row < 8; ++row) x[row] = dequantise(coefficients, quant, 8 * row + column);
        Word values[4];
        transform4(x, values);
        for (uint32_t row = 0; row < 4; ++row) work[row][column] = shiftRight(values[row], 12);
    }
    for (const auto& row : work) {
        Word values[4];
        transform4(row, values);
        for (uint32_t column = 0; column < 4; ++column) {
            out[column] = sampleByte(static_cast<int32_t>(shiftRight(values[column], 19)));
        }
        out += stride;
    }
}

uint8_t flatSample8(uint32_t dc) {
    const Word column = shiftRight(dc * (362 * 4), 9);
    return sampleByte(roundSixteenth(shiftRight(column * 362, 9)));
}

uint8_t flatSample4(uint32_t dc) {
    return sampleByte(static_cast<int32_t>(shiftRight(dc * 4 << 14, 19)));
}

void inverseDct2(uint8_t* out, const int32_t* coefficients, const uint32_t* quant, uint32_t stride) {
    constexpr uint32_t kColumns[] = {0, 1, 3, 5, 7};  // the others have no part in the rows
    Word work[2][8];
    for (uint32_t column : kColumns) {
        const auto x = [&](uint32_t row) { return dequantise(coefficients, quant, 8 * row + column); };
        const Word even = x(0);
        const Word odd = x(1) - x(3) + x(5) - x(7);
        work[0][column] = even + odd;
        work[1][column] = even - odd;
    }
    for (const auto& y : work) {
        const Word odd = y[1] - y[3] + y[5] - y[7];
        out[0] = sampleByte(static_cast<int32_t>(shiftRight(y[0] + odd, 20)));
        out[1] = sampleByte(static_cast<int32_t>(shiftRight(y[0] - odd, 20)));
        out += stride;
    }
}

void prescaleQuantTable(uint32_t* quant) {
    for (uint32_t place = 0; place < 64; ++place) quant[place] *= kPrescale[place];
}

uint8_t blockMean(int32_t dc, uint32_t quant) {
    return clampToByte(static_cast<int32_t>(shiftRight(static_cast<Word>(dc) * quant + 1024, 3)));
}

}  // namespace jpeg
