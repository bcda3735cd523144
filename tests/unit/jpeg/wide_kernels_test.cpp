// The vector kernels of the fast engines against the portable arithmetic.
#include "unit/jpeg/wide_kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>

#include "jpeg/color_tables.h"
#include "jpeg/inverse_dct.h"
#include "jpeg/scan_engine.h"

namespace {

class WideKernelTest : public testing::TestWithParam<const WideKernels*> {
  protected:
    void SetUp() override {
        for (const jpeg::ScanEngine& engine : jpeg::scanEngines()) {
            if (std::strcmp(engine.name, GetParam()->engine) != 0) continue;
            if (engine.supported()) return;
        }
        GTEST_SKIP() << "this processor cannot run " << GetParam()->engine;
    }

    int32_t random(int32_t most) { return static_cast<int32_t>(m_random() % (2 * most + 1u)) - most; }

    // Blocks of all densities whose products stay below `bound` and whose sums lie around it; some of the
    // extremest.
    void makeBlock(int16_t* coefficients, int16_t* quant, int32_t bound) {
        std::memset(coefficients, 0, 64 * sizeof *coefficients);
        const uint32_t kind = m_random() % 8;
        const int32_t largestStep = kind < 4 ? 60 : 255;
        for (uint32_t i = 0; i < 64; ++i) quant[i] = static_cast<int16_t>(1 + m_random() % largestStep);
        const uint32_t count = 1 + m_random() % 64;
        const int32_t sum =
            kind == 0 ? 2 * bound - bound / 20 : 1 + static_cast<int32_t>(m_random() % (bound + bound / 20));
        for (uint32_t n = 0; n < count; ++n) {
            const uint32_t place = kind == 1   ? m_random() % 8 * 8
                                   : kind == 2 ? m_random() % 8
                                               : m_random() % 64;
            const int32_t most =
                std::min(bound - 1, kind == 3 ? sum : sum / static_cast<int32_t>(count)) / quant[place];
            const bool extreme = m_random() % 2 == 0;
            coefficients[place] =
                static_cast<int16_t>(extreme ? (m_random() % 2 == 0 ? most : -most) : random(most));
        }
    }

    // Returns how many blocks the kernel took.
    uint32_t compare(WideKernels::Transform kernel, jpeg::InverseDct portable, uint32_t side, int32_t bound,
                     uint32_t blocks) {
        constexpr uint32_t kStride = 13;
        uint32_t taken = 0;
        for (uint32_t n = 0; n < blocks; ++n) {
            int16_t coefficients[64];
            int16_t quant[64];
            makeBlock(coefficients, quant, bound);
            int32_t wide[64];
            uint32_t steps[64];
            for (uint32_t i = 0; i < 64; ++i) {
                wide[i] = coefficients[i];
                steps[i] = static_cast<uint32_t>(quant[i]);
            }
            uint8_t expected[8 * kStride];
            uint8_t actual[8 * kStride];
            std::memset(expected, 0xEE, sizeof expected);
            std::memset(actual, 0xEE, sizeof actual);
            if (!kernel(actual, coefficients, quant, kStride)) continue;
            ++taken;
            portable(expected, wide, steps, kStride);
            if (std::memcmp(actual, expected, side * kStride) == 0) continue;
            ADD_FAILURE() << "block " << n;
            return taken;
        }
        return taken;
    }

    std::mt19937 m_random{4711};
};

constexpr uint32_t kBlocks = 1000000;
constexpr int32_t kBound8 = 5800;
constexpr int32_t kBound4 = 6300;

TEST_P(WideKernelTest, EightByEightIsThePortableOne) {
    const uint32_t taken = compare(GetParam()->inverse8, jpeg::inverseDct8, 8, kBound8, kBlocks);
    EXPECT_GT(taken, kBlocks * 8 / 10);
    EXPECT_LT(taken, kBlocks);
}

TEST_P(WideKernelTest, FourByFourIsThePortableOne) {
    const uint32_t taken = compare(GetParam()->inverse4, jpeg::inverseDct4, 4, kBound4, kBlocks);
    EXPECT_GT(taken, kBlocks * 8 / 10);
    EXPECT_LT(taken, kBlocks);
}

// The largest magnitude, in every place and with either sign, alone and with the bound filled up by another.
TEST_P(WideKernelTest, BlocksAtTheBound) {
    for (uint32_t first = 0; first < 64; ++first) {
        for (uint32_t second = 0; second < 64; ++second) {
            for (int32_t share : {0, 1, 1000, 2000, kBound8 / 2}) {
                for (uint32_t signs = 0; signs < 4; ++signs) {
                    int32_t wide[64] = {};
                    int16_t coefficients[64] = {};
                    int16_t quant[64];
                    uint32_t steps[64];
                    for (uint32_t i = 0; i < 64; ++i) quant[i] = 1, steps[i] = 1;
                    wide[first] = (signs & 1) != 0 ? share - kBound8 : kBound8 - share;
                    if (second != first) wide[second] = (signs & 2) != 0 ? -share : share;
                    for (uint32_t i = 0; i < 64; ++i) coefficients[i] = static_cast<int16_t>(wide[i]);
                    uint8_t expected[64];
                    uint8_t actual[64];
                    ASSERT_TRUE(GetParam()->inverse8(actual, coefficients, quant, 8));
                    jpeg::inverseDct8(expected, wide, steps, 8);
                    ASSERT_EQ(std::memcmp(actual, expected, 64), 0) << first << " " << second << " " << share;
                }
            }
        }
    }
}

// All pairs of chroma samples; the luma only enters by an addition, so a few values do.
TEST_P(WideKernelTest, ColorsAreThoseOfTheTables) {
    const jpeg::ColorTables& tables = jpeg::kColorTables;
    const auto clamped = [](int16_t value) { return std::min(255, std::max<int32_t>(0, value)); };
    for (uint32_t cb = 0; cb < 256; ++cb) {
        for (uint32_t block = 0; block < 256; block += 16) {
            for (uint32_t luma : {0u, 1u, 100u, 128u, 254u, 255u}) {
                uint8_t y[16], b[16], r[16];
                for (uint32_t i = 0; i < 16; ++i) {
                    y[i] = static_cast<uint8_t>(luma);
                    b[i] = static_cast<uint8_t>(cb);
                    r[i] = static_cast<uint8_t>(block + i);
                }
                int16_t red[16], green[16], blue[16];
                GetParam()->channels(red, green, blue, y, b, r);
                for (uint32_t i = 0; i < 16; ++i) {
                    const uint8_t* const quarters = tables.clampQuarter + jpeg::kClampBelow + 4 * luma;
                    ASSERT_EQ(clamped(red[i]), quarters[tables.crToR[r[i]]]) << cb << " " << block + i;
                    ASSERT_EQ(clamped(green[i]), quarters[tables.cbToG[cb] + tables.crToG[r[i]]]);
                    ASSERT_EQ(clamped(blue[i]), quarters[tables.cbToB[cb]]);
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Engines, WideKernelTest, testing::Values(&kSseKernels, &kAvx2Kernels),
                         [](const auto& chosen) {
                             return chosen.param == &kSseKernels ? std::string("sse41") : std::string("avx2");
                         });

}  // namespace
