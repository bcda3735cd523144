#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>

#include "jpeg/inverse_dct.h"
#include "support/scan_writer.h"

namespace {

using Table = std::array<uint32_t, 64>;

Table flatTable(uint32_t step) {
    Table table;
    table.fill(step);
    return table;
}

constexpr uint32_t kStride = 11;

template <uint32_t kSize>
std::array<uint8_t, kSize * kSize> transform(jpeg::InverseDct routine, const Block& block,
                                             const Table& quant) {
    // One byte of guard in every row beyond the block.
    std::vector<uint8_t> samples(kStride * kSize, 0xEE);
    routine(samples.data(), block.data(), quant.data(), kStride);
    std::array<uint8_t, kSize * kSize> result;
    for (uint32_t y = 0; y < kSize; ++y) {
        for (uint32_t x = 0; x < kStride; ++x) {
            if (x < kSize) {
                result[y * kSize + x] = samples[y * kStride + x];
            } else {
                EXPECT_EQ(samples[y * kStride + x], 0xEE);
            }
        }
    }
    return result;
}

auto full(const Block& block, const Table& quant) {
    return transform<8>(jpeg::inverseDct8, block, quant);
}
auto half(const Block& block, const Table& quant) {
    return transform<4>(jpeg::inverseDct4, block, quant);
}
auto quarter(const Block& block, Table quant) {
    jpeg::prescaleQuantTable(quant.data());
    return transform<2>(jpeg::inverseDct2, block, quant);
}

Block dcBlock(int32_t dc) {
    Block block{};
    block[0] = dc;
    return block;
}

// Exact transform, before the level shift.
double exact(const Block& block, const Table& quant, int x, int y) {
    double sum = 0;
    for (int v = 0; v < 8; ++v) {
        for (int u = 0; u < 8; ++u) {
            const double weight = (u == 0 ? std::sqrt(0.5) : 1) * (v == 0 ? std::sqrt(0.5) : 1) / 4;
            sum += weight * block[8 * v + u] * quant[8 * v + u] * std::cos((2 * x + 1) * u * M_PI / 16) *
                   std::cos((2 * y + 1) * v * M_PI / 16);
        }
    }
    return sum;
}

// Computed by an implementation of its own, in another language. Steps: 3 + 7 i mod 11 + i / 8.
struct KnownAnswer {
    Block block;
    std::array<uint8_t, 64> full;
    std::array<uint8_t, 16> half;
    std::array<uint8_t, 4> quarter;
};
constexpr KnownAnswer kKnownAnswers[] = {
    {{45, 0,   0,   0, 0, 0, 19,  0, -34, 0, 20, 0,   0, -9, -13, 0, 9, -31, 39, 0, -40, -13,
      0,  -19, 0,   0, 0, 0, -15, 0, 0,   0, 0,  -22, 0, 0,  0,   0, 0, 0,   5,  0, 0,   0,
      0,  0,   -38, 0, 0, 0, 0,   0, 0,   0, 0,  0,   0, 0,  -9,  0, 0, 0,   0,  0},
     {0,   255, 23,  0,   0,   255, 255, 255, 182, 104, 170, 0,   0,   232, 56,  246,
      223, 79,  124, 245, 255, 10,  0,   77,  255, 76,  83,  255, 255, 0,   60,  93,
      213, 0,   255, 255, 255, 158, 0,   16,  246, 96,  255, 147, 130, 186, 45,  81,
      96,  241, 188, 191, 151, 240, 245, 131, 94,  55,  222, 34,  0,   255, 186, 255},
     {136, 16, 98, 237, 165, 184, 122, 56, 111, 255, 190, 7, 121, 158, 211, 234},
     {125, 128, 163, 160}},
    {{-37, -16, -134, 26,  63,  64,  60,  -25, 61, -33, -68, -10, 57,  57,  -47, -32,
      -17, 1,   10,   -13, 35,  -29, -13, -17, 31, 14,  3,   -27, -12, 11,  -12, -12,
      -19, 16,  -23,  6,   -18, 11,  9,   -10, 23, -1,  -16, 9,   -20, -18, 19,  4,
      1,   16,  -4,   -18, -10, 8,   3,   -6,  11, -9,  -2,  4,   -3,  -12, -14, 14},
     {0,   0,  0,   255, 255, 255, 0,   66,  219, 0, 0,   255, 255, 15,  54, 255,
      71,  0,  26,  255, 255, 237, 123, 175, 46,  0, 255, 255, 226, 255, 0,  0,
      86,  0,  244, 212, 97,  255, 188, 0,   255, 0, 255, 224, 0,   235, 0,  66,
      255, 14, 255, 0,   255, 255, 0,   255, 164, 0, 131, 0,   0,   230, 0,  0},
     {0, 255, 255, 94, 0, 255, 255, 11, 64, 255, 127, 0, 45, 6, 255, 0},
     {88, 194, 102, 70}},
};

}  // namespace

TEST(InverseDct, DcAlone) {
    for (uint8_t sample : full(dcBlock(10), flatTable(8))) EXPECT_EQ(sample, 138);
    for (uint8_t sample : half(dcBlock(10), flatTable(8))) EXPECT_EQ(sample, 138);
    for (uint8_t sample : quarter(dcBlock(10), flatTable(8))) EXPECT_EQ(sample, 138);
    EXPECT_EQ(jpeg::blockMean(10, 8), 138);
}

// 80 becomes 226 in the columns, 159 in the rows, and 159 / 16 rounds to 10; one step of rounding per value.
TEST(InverseDct, DcFollowsItsOwnRounding) {
    for (int32_t dc = -1024; dc <= 1023; ++dc) {
        const int32_t columns = (dc * 1448) >> 9;
        const int32_t rows = (columns * 362) >> 9;
        const int32_t value = rows < 0 ? (rows - 8) / 16 : (rows + 8) / 16;
        const int32_t expected = std::min(255, std::max(0, value + 128));
        EXPECT_EQ(full(dcBlock(dc), flatTable(1))[27], expected) << dc;
        EXPECT_EQ(half(dcBlock(dc), flatTable(1))[5], std::min(255, std::max(0, (dc >> 3) + 128))) << dc;
        EXPECT_EQ(quarter(dcBlock(dc), flatTable(1))[3], std::min(255, std::max(0, (dc >> 3) + 128))) << dc;
    }
}

TEST(InverseDct, ClampsBeyondEveryTable) {
    for (int32_t dc : {1023, 2047, 30000}) {
        EXPECT_EQ(full(dcBlock(dc), flatTable(8))[0], 255);
        EXPECT_EQ(full(dcBlock(-dc), flatTable(8))[0], 0);
        EXPECT_EQ(half(dcBlock(dc), flatTable(1))[0], 255);
        EXPECT_EQ(half(dcBlock(-dc - 1), flatTable(1))[0], 0);
    }
    EXPECT_EQ(quarter(dcBlock(1023), flatTable(8))[0], 255);
    EXPECT_EQ(quarter(dcBlock(-1023), flatTable(8))[0], 0);
}

TEST(InverseDct, WrapsWithoutHarm) {
    Block block;
    block.fill(INT32_MIN);
    full(block, flatTable(255));
    half(block, flatTable(255));
    quarter(block, flatTable(255));
    block.fill(INT32_MAX);
    full(block, flatTable(UINT32_MAX));
    half(block, flatTable(UINT32_MAX));
    quarter(block, flatTable(UINT32_MAX));
    // 16384 times 131072 is 2 to the 31st: the sum turns negative and the sample black.
    EXPECT_EQ(quarter(dcBlock(1024), flatTable(16))[0], 0);
    EXPECT_EQ(quarter(dcBlock(1023), flatTable(16))[0], 255);
}

TEST(InverseDct, KnownAnswers) {
    Table quant;
    for (uint32_t i = 0; i < 64; ++i) quant[i] = 3 + i * 7 % 11 + i / 8;
    for (const KnownAnswer& answer : kKnownAnswers) {
        EXPECT_EQ(full(answer.block, quant), answer.full);
        EXPECT_EQ(half(answer.block, quant), answer.half);
        EXPECT_EQ(quarter(answer.block, quant), answer.quarter);
    }
}

TEST(InverseDct, FullIsCloseToTheExactTransform) {
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        Block block{};
        for (int n = 0; n < 1 + round % 12; ++n)
            block[random() % 64] = static_cast<int32_t>(random() % 101) - 50;
        Table quant;
        for (uint32_t& step : quant) step = 1 + random() % 4;
        const auto samples = full(block, quant);
        for (int i = 0; i < 64; ++i) {
            const double expected = std::min(255.0, std::max(0.0, exact(block, quant, i % 8, i / 8) + 128));
            EXPECT_NEAR(samples[i], expected, 2) << round << " " << i;
        }
    }
}

// The reduced transforms stand for the low frequencies, which average well.
TEST(InverseDct, ReducedOnesAreCloseToTheMeanOfLowFrequencies) {
    std::mt19937 random(2);
    for (int round = 0; round < 200; ++round) {
        Block block{};
        block[0] = static_cast<int32_t>(random() % 801) - 400;
        for (int place : {1, 8, 9}) block[place] = static_cast<int32_t>(random() % 121) - 60;
        const Table quant = flatTable(1);
        const auto mean = [&](int x, int y, int size) {
            double sum = 0;
            for (int j = 0; j < size; ++j) {
                for (int i = 0; i < size; ++i) sum += exact(block, quant, x * size + i, y * size + j);
            }
            return sum / (size * size) + 128;
        };
        const auto halves = half(block, quant);
        for (int i = 0; i < 16; ++i) EXPECT_NEAR(halves[i], mean(i % 4, i / 4, 2), 2.5) << round;
        const auto quarters = quarter(block, quant);
        for (int i = 0; i < 4; ++i) EXPECT_NEAR(quarters[i], mean(i % 2, i / 2, 4), 2.5) << round;
    }
}

TEST(InverseDct, HalfIgnoresRowAndColumnFour) {
    Block block = dcBlock(100);
    const auto plain = half(block, flatTable(1));
    for (int i = 0; i < 8; ++i) block[32 + i] = block[8 * i + 4] = 77;
    EXPECT_EQ(half(block, flatTable(1)), plain);
}

TEST(InverseDct, QuarterIgnoresEvenFrequencies) {
    Block block = dcBlock(100);
    const auto plain = quarter(block, flatTable(1));
    for (int i = 0; i < 8; ++i) {
        for (int even : {2, 4, 6}) block[8 * even + i] = block[8 * i + even] = 55;
    }
    EXPECT_EQ(quarter(block, flatTable(1)), plain);
}

TEST(BlockMean, HoldsTheLevelShiftAndClamps) {
    EXPECT_EQ(jpeg::blockMean(0, 200), 128);
    EXPECT_EQ(jpeg::blockMean(-1, 1), 127);  // (1024 - 1) >> 3
    EXPECT_EQ(jpeg::blockMean(7, 1), 128);
    EXPECT_EQ(jpeg::blockMean(127, 8), 255);
    EXPECT_EQ(jpeg::blockMean(128, 8), 255);
    EXPECT_EQ(jpeg::blockMean(-128, 8), 0);
    EXPECT_EQ(jpeg::blockMean(-500, 8), 0);
    EXPECT_EQ(jpeg::blockMean(INT32_MAX, 255), 0) << "wraps at 32 bits";
}
