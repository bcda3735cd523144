#include "handheld/sio/encoder/quantiser.h"

#include <cmath>

namespace sio {
namespace {

// Natural (row by row) place of each zig-zag entry.
constexpr uint8_t kNatural[kCoefficients] = {0,  1,  8,  16, 9,  2,  3,  10, 17, 24, 32, 25, 18, 11, 4,  5,
                                             12, 19, 26, 33, 40, 48, 41, 34, 27, 20, 13, 6,  7,  14, 21, 28,
                                             35, 42, 49, 56, 57, 50, 43, 36, 29, 22, 15, 23, 30, 37, 44, 51,
                                             58, 59, 52, 45, 38, 31, 39, 46, 53, 60, 61, 54, 47, 55, 62, 63};

constexpr int transposed(int natural) {
    return (natural & 7) * 8 + (natural >> 3);
}

// What the transform below leaves unscaled in row or column k: cos(k pi / 16) sqrt(2), and 1 for k = 0.
double leftOver(int k) {
    return k == 0 ? 1.0 : std::cos(k * 3.14159265358979323846 / 16) * 1.41421356237309504880;
}

// The transform of Arai, Agui and Nakajima down the eight columns of `in`: five multiplications a column.
inline void transformColumns(const float (&in)[8][8], float (&out)[8][8]) {
    for (int c = 0; c < 8; ++c) {
        const float sum07 = in[0][c] + in[7][c], dif07 = in[0][c] - in[7][c];
        const float sum16 = in[1][c] + in[6][c], dif16 = in[1][c] - in[6][c];
        const float sum25 = in[2][c] + in[5][c], dif25 = in[2][c] - in[5][c];
        const float sum34 = in[3][c] + in[4][c], dif34 = in[3][c] - in[4][c];

        const float outer = sum07 + sum34, inner = sum16 + sum25;
        out[0][c] = outer + inner;
        out[4][c] = outer - inner;
        const float outerDif = sum07 - sum34;
        const float turned = (sum16 - sum25 + outerDif) * 0.707106781f;
        out[2][c] = outerDif + turned;
        out[6][c] = outerDif - turned;

        const float a = dif34 + dif25, b = dif25 + dif16, d = dif16 + dif07;
        const float shared = (a - d) * 0.382683433f;
        const float low = 0.541196100f * a + shared, high = 1.306562965f * d + shared,
                    middle = b * 0.707106781f;
        const float plus = dif07 + middle, minus = dif07 - middle;
        out[5][c] = minus + low;
        out[3][c] = minus - low;
        out[1][c] = plus + high;
        out[7][c] = plus - high;
    }
}

inline void transpose(const float (&in)[8][8], float (&out)[8][8]) {
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) out[x][y] = in[y][x];
    }
}

}  // namespace

CQuantiser::CQuantiser(const StepTable& steps) {
    for (int k = 0; k < kCoefficients; ++k) {
        const int natural = kNatural[k];
        m_factors[transposed(natural)] =
            static_cast<float>(1.0 / (steps[k] * leftOver(natural >> 3) * leftOver(natural & 7) * 8));
    }
}

uint64_t CQuantiser::code(const uint8_t* samples, int stride, int16_t* zigzag) const {
    alignas(32) float block[8][8], turned[8][8];
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) block[y][x] = static_cast<float>(samples[y * stride + x] - 128);
    }
    transformColumns(block, turned);
    transpose(turned, block);
    transformColumns(block, turned);

    // Rounds to nearest by way of positive numbers, which a plain conversion truncates downwards.
    constexpr int positive = 16384;
    int16_t rounded[kCoefficients];
    const float* values = &turned[0][0];
    for (int i = 0; i < kCoefficients; ++i) {
        rounded[i] =
            static_cast<int16_t>(static_cast<int>(values[i] * m_factors[i] + (positive + 0.5f)) - positive);
    }
    uint64_t present = 0;
    for (int k = 0; k < kCoefficients; ++k) {
        const int16_t value = rounded[transposed(kNatural[k])];
        zigzag[k] = value;
        present |= static_cast<uint64_t>(value != 0) << k;
    }
    return present;
}

}  // namespace sio
