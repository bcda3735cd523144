// The kernels of the scalar engine against the portable ones: transforms, colours, look-ahead tables.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <memory>
#include <random>

#include "jpeg/inverse_dct.h"
#include "jpeg/row_converters.h"
#include "jpeg/scalar/dct4.h"
#include "jpeg/scalar/dct8.h"
#include "jpeg/scalar/rows.h"
#include "jpeg/scalar/skips.h"
#include "jpeg/scan_engine.h"
#include "support/decode_run.h"
#include "support/scan_writer.h"

namespace {

using Coefficients = std::array<int32_t, 64>;  // dequantised, in natural order

jpeg::ScalarBlock scalarBlock(const Coefficients& coefficients) {
    jpeg::ScalarBlock block;
    block.columns = 0;
    block.magnitude = 0;
    for (uint32_t place = 0; place < 64; ++place) {
        const int32_t value = coefficients[place];
        const uint32_t row = place / 8;
        const uint32_t set = row == 0  ? jpeg::kSetOfRow0
                             : row < 4 ? jpeg::kSetOfRows1To3
                                       : jpeg::kSetOfRows4To7;
        if (place != 0 && value != 0) block.columns |= set << place % 8;
        block.values[8 * (place % 8) + row] = value;
    }
    return block;
}

struct Transform {
    uint32_t side;
    uint32_t maxMagnitude;
    jpeg::InverseDct portable;
    void (*scalar)(jpeg::ScalarBlock& block, uint8_t* out, uint32_t stride);
};
constexpr Transform kTransforms[] = {
    {8, jpeg::kDct8MaxMagnitude, jpeg::inverseDct8,
     [](jpeg::ScalarBlock& block, uint8_t* out, uint32_t stride) {
         jpeg::scalarDct8(block, out, stride, 4);
     }},
    {4, jpeg::kDct4MaxMagnitude, jpeg::inverseDct4, jpeg::scalarDct4},
};

constexpr uint32_t kStride = 12;

struct Samples {
    alignas(4) uint8_t at[8 * kStride];
    Samples() { std::fill(std::begin(at), std::end(at), uint8_t{0xEE}); }
};

Samples portableSamples(jpeg::InverseDct transform, const Coefficients& coefficients) {
    uint32_t ones[64];
    std::fill(std::begin(ones), std::end(ones), 1);
    Samples samples;
    transform(samples.at, coefficients.data(), ones, kStride);
    return samples;
}

void expectSame(const Transform& transform, const Coefficients& coefficients) {
    const Samples expected = portableSamples(transform.portable, coefficients);
    Samples actual;
    jpeg::ScalarBlock block = scalarBlock(coefficients);
    transform.scalar(block, actual.at, kStride);
    ASSERT_TRUE(std::equal(std::begin(expected.at), std::end(expected.at), std::begin(actual.at)))
        << "side " << transform.side << ", coefficients " << testing::PrintToString(coefficients);
    for (int32_t value : block.values) ASSERT_EQ(value, 0) << "not cleared";
}

// `count` coefficients in the first `columns` columns and `rows` rows that share out `magnitude`.
Coefficients randomBlock(std::mt19937& random, uint32_t count, uint32_t columns, uint32_t rows,
                         uint32_t magnitude) {
    Coefficients coefficients{};
    for (uint32_t n = 0; n < count; ++n) {
        const uint32_t place = random() % rows * 8 + random() % columns;
        const int32_t most = static_cast<int32_t>(magnitude / count);
        const bool extreme = random() % 2 == 0;
        const int32_t value = extreme ? most : static_cast<int32_t>(random() % (magnitude / count + 1));
        coefficients[place] = random() % 2 == 0 ? value : -value;
    }
    return coefficients;
}

TEST(ScalarTransforms, EqualThePortableOnes) {
    std::mt19937 random(1);
    for (const Transform& transform : kTransforms) {
        for (uint32_t n = 0; n < 6000; ++n) {
            const uint32_t count = 1 + random() % (n % 2 == 0 ? 6 : 64);
            const uint32_t magnitude = n % 3 == 0 ? transform.maxMagnitude : 1 + random() % 3000;
            expectSame(transform, randomBlock(random, count, 1 + random() % 8, 1 + random() % 8, magnitude));
        }
    }
}

// Each place at the bound, alone and with the first one.
TEST(ScalarTransforms, AreExactUpToTheirBounds) {
    for (const Transform& transform : kTransforms) {
        const int32_t most = static_cast<int32_t>(transform.maxMagnitude);
        for (uint32_t place = 0; place < 64; ++place) {
            for (int32_t first : {0, most / 2, -most / 2}) {
                const int32_t rest = most - std::abs(first);
                for (int32_t value : {rest, -rest}) {
                    Coefficients coefficients{};
                    coefficients[0] = first;
                    coefficients[place] = value;
                    expectSame(transform, coefficients);
                }
            }
        }
    }
}

// Signs that make one sample as large as can be: every coefficient with that of its basis function there.
TEST(ScalarTransforms, AreExactWhereAllCoefficientsAddUp) {
    for (const Transform& transform : kTransforms) {
        const int32_t most = static_cast<int32_t>(transform.maxMagnitude) / 64;
        for (uint32_t corner = 0; corner < 4; ++corner) {
            for (int32_t sign : {1, -1}) {
                Coefficients coefficients;
                for (uint32_t place = 0; place < 64; ++place) {
                    const bool odd = ((place / 8 & corner) ^ (place % 8 & corner >> 1)) & 1;
                    coefficients[place] = odd ? -sign * most : sign * most;
                }
                expectSame(transform, coefficients);
            }
        }
    }
}

TEST(ScalarTransforms, TakeAnyFirstCoefficientAlone) {
    std::mt19937 random(2);
    Coefficients coefficients{};
    for (int32_t value : {INT_MIN, INT_MIN + 1, INT_MAX, -8, -80, 0, 8, 80, 1000000, -1000000}) {
        coefficients[0] = value;
        expectSame(kTransforms[0], coefficients);
    }
    for (uint32_t n = 0; n < 4000; ++n) {
        coefficients[0] = static_cast<int32_t>(random()) >> random() % 31;
        expectSame(kTransforms[0], coefficients);
    }
}

TEST(ScalarTransforms, LeaveDroppedRowsAlone) {
    std::mt19937 random(3);
    for (uint32_t n = 0; n < 200; ++n) {
        const Coefficients coefficients = randomBlock(random, 1 + random() % 20, 1 + n % 8, 8, 3000);
        const Samples expected = portableSamples(jpeg::inverseDct8, coefficients);
        Samples actual;
        jpeg::ScalarBlock block = scalarBlock(coefficients);
        if (block.columns == 0) continue;  // blocks of one value are filled whole
        jpeg::scalarDct8(block, actual.at, kStride, 3);
        for (uint32_t row = 0; row < 8; ++row) {
            const uint8_t* const got = actual.at + row * kStride;
            if (row % 4 == 3) {
                EXPECT_TRUE(std::all_of(got, got + 8, [](uint8_t sample) { return sample == 0xEE; }));
            } else {
                EXPECT_TRUE(std::equal(got, got + 8, expected.at + row * kStride));
            }
        }
    }
}

struct RowCase {
    const char* name;
    uint16_t mode;
    int32_t samplingKind;
    jpeg::Scaling scaling;
    RowConverter portable;
};
constexpr RowCase kRowCases[] = {
    {"24 bit, 4:4:4", 8, 2, jpeg::kScalingExact, jpeg::exactRow<jpeg::Bgr24, 0>},
    {"24 bit, 4:2:0", 8, 0, jpeg::kScalingExact, jpeg::exactRow<jpeg::Bgr24, 1>},
    {"24 bit, 4:4:4, three quarters", 9, 2, jpeg::kScalingThreeQuarter,
     jpeg::threeQuarterRow<jpeg::Bgr24, 0>},
    {"24 bit, 4:2:2, three quarters", 9, 1, jpeg::kScalingThreeQuarter,
     jpeg::threeQuarterRow<jpeg::Bgr24, 1>},
    {"RGB565, 4:4:4", 1, 2, jpeg::kScalingExact, jpeg::exactRow<jpeg::Rgb565, 0>},
    {"RGB565, 4:2:2", 1, 1, jpeg::kScalingExact, jpeg::exactRow<jpeg::Rgb565, 1>},
    {"RGB565, 4:4:4, three quarters", 2, 2, jpeg::kScalingThreeQuarter,
     jpeg::threeQuarterRow<jpeg::Rgb565, 0>},
    {"RGB565, 4:2:0, three quarters", 2, 0, jpeg::kScalingThreeQuarter,
     jpeg::threeQuarterRow<jpeg::Rgb565, 1>},
};

// A frame of `width` columns whose picture starts at `out`.
std::unique_ptr<DecoderContext> frameOf(const RowCase& row, uint32_t width, uint8_t* out) {
    auto context = std::make_unique<DecoderContext>();
    context->mode = row.mode;
    context->samplingKind = row.samplingKind;
    context->rowScaling = row.scaling;
    context->scaledWidth = width;
    context->targetRowBytes = 4 * width;
    context->cursors.outputCursor = out;
    context->convertRow = row.portable;
    return context;
}

void expectSameRow(const RowCase& row, const Bytes& y, const Bytes& cb, const Bytes& cr, uint32_t width) {
    std::vector<uint32_t> expected(width), actual(width);
    uint8_t* const expectedStart = reinterpret_cast<uint8_t*>(expected.data());
    uint8_t* const actualStart = reinterpret_cast<uint8_t*>(actual.data());
    const auto context = frameOf(row, width, actualStart);
    const RowConverter scalar = jpeg::scalarRowConverter(*context);
    ASSERT_NE(scalar, row.portable) << row.name;
    const SourceRow source = {y.data(), cb.data(), cr.data()};
    const uint8_t* const expectedEnd = row.portable(*context, source, expectedStart);
    const uint8_t* const actualEnd = scalar(*context, source, actualStart);
    ASSERT_EQ(actualEnd - actualStart, expectedEnd - expectedStart) << row.name;
    ASSERT_EQ(actual, expected) << row.name;
}

// Of the luma samples, 0, 255 and six others for each pair: every pair is seen where channels are clamped and
// where they are not, at every place of a group.
TEST(ScalarRows, EqualThePortableOnesForAllChromaPairs) {
    constexpr uint32_t kPairs = 65536;
    for (const RowCase& row : kRowCases) {
        const uint32_t columnsPerPair = row.samplingKind == 2 ? 1 : 2;
        for (uint32_t round = 0; round < 8 / columnsPerPair; ++round) {
            Bytes y(kPairs * columnsPerPair), cb(kPairs), cr(kPairs);
            for (uint32_t pair = 0; pair < kPairs; ++pair) {
                cb[pair] = static_cast<uint8_t>(pair + 7 * round);
                cr[pair] = static_cast<uint8_t>(pair >> 8);
            }
            for (uint32_t x = 0; x < y.size(); ++x) {
                const uint32_t kind = (x + round + x / 8) % 8;
                y[x] = static_cast<uint8_t>(kind == 0   ? 0
                                            : kind == 1 ? 255
                                                        : x * 37 + (x >> 8) * 11 + round * 29);
            }
            expectSameRow(row, y, cb, cr, kPairs * columnsPerPair);
        }
    }
}

TEST(ScalarRows, LeaveOtherPicturesToThePortableOnes) {
    alignas(4) uint8_t picture[8] = {};
    for (const RowCase& row : kRowCases) {
        EXPECT_NE(jpeg::scalarRowConverter(*frameOf(row, 320, picture)), row.portable) << row.name;
        EXPECT_EQ(jpeg::scalarRowConverter(*frameOf(row, 322, picture)), row.portable) << row.name;
        for (uint32_t offset = 1; offset < 4; ++offset) {
            EXPECT_EQ(jpeg::scalarRowConverter(*frameOf(row, 320, picture + offset)), row.portable);
        }
        const auto general = frameOf(row, 320, picture);
        general->rowScaling = jpeg::kScalingGeneral;
        EXPECT_EQ(jpeg::scalarRowConverter(*general), row.portable) << row.name;
        const auto oddRows = frameOf(row, 320, picture);
        oddRows->targetRowBytes = 642;
        EXPECT_EQ(jpeg::scalarRowConverter(*oddRows), row.portable) << row.name;
    }
}

// The symbols at the start of some bits, by the portable tables, as an entry counts them.
struct Symbols {
    const HuffmanTable& table;
    uint32_t look;  // kSkipLook bits

    // Bits of the next symbol's code, 0 when it does not lie within the look-ahead; its symbol.
    uint32_t codeAt(uint32_t place, uint32_t& symbol) const {
        for (uint32_t length = 1; place + length <= jpeg::kSkipLook; ++length) {
            const uint32_t code = look >> (jpeg::kSkipLook - place - length) & ((1u << length) - 1);
            if (static_cast<int32_t>(code) > table.maxCode[length]) continue;
            symbol = table.huffVal[table.valOffset[length] + static_cast<int32_t>(code)];
            return length;
        }
        return 0;
    }
};

TEST(SkipTables, HoldWholeSymbolsOnly) {
    TestContext context;
    for (uint32_t chroma = 0; chroma < 2; ++chroma) {
        for (uint32_t look = 0; look < 1u << jpeg::kSkipLook; ++look) {
            const uint32_t entry = jpeg::kSkipTables[chroma].entries[look];
            const Symbols symbols = {context->huffman[2 + chroma], look};
            uint32_t bits = 0;
            uint32_t advance = 0;
            while (bits < jpeg::skipBits(entry)) {
                uint32_t symbol = 0;
                const uint32_t length = symbols.codeAt(bits, symbol);
                ASSERT_NE(length, 0u) << look;
                ASSERT_LT(advance, jpeg::kSkipToEnd) << look << ": goes on behind the end of a block";
                bits += length + (symbol & 15);
                advance += symbol == 0 ? jpeg::kSkipToEnd : (symbol >> 4) + 1;
            }
            ASSERT_EQ(bits, jpeg::skipBits(entry)) << look;
            ASSERT_EQ(advance, jpeg::skipAdvance(entry)) << look;
            ASSERT_LE(bits, jpeg::kSkipMaxBits) << look;
        }
    }
}

// An entry without symbols: its code has at least kSkipShortest bits, where the engine starts to look.
TEST(SkipTables, LeaveOutLongCodesOnly) {
    TestContext context;
    for (uint32_t chroma = 0; chroma < 2; ++chroma) {
        uint32_t left = 0;
        for (uint32_t look = 0; look < 1u << jpeg::kSkipLook; ++look) {
            if (jpeg::kSkipTables[chroma].entries[look] != 0) continue;
            ++left;
            uint32_t symbol = 0;
            const uint32_t length = Symbols{context->huffman[2 + chroma], look}.codeAt(0, symbol);
            EXPECT_TRUE(length == 0 || length >= jpeg::kSkipShortest) << look;
        }
        EXPECT_LT(left, (1u << jpeg::kSkipLook) / 16);
    }
}

// A scan at reduction 4 that ends early leaves scaled tables to one without reduction; products with them
// leave 32 bits, which only the portable engine may let happen. (Without that, the sanitizers stop here.)
TEST(ScalarEngine, LeavesTablesThatWereScaledBeforeToThePortableOne) {
    Block rich{};
    for (uint32_t place = 0; place < 64; place += 3) rich[place] = place % 2 == 0 ? 900 : -900;
    ScanWriter first, second;
    first.flatBlock(false, 3).flatBlock(true, 0).flatBlock(true, 0);
    for (uint32_t mcu = 0; mcu < 20 * 15; ++mcu) {
        int32_t predictors[3] = {};
        for (uint32_t index = 0; index < 3; ++index) second.block(index != 0, rich, predictors[index]);
    }
    const Bytes stream = JpegStream()
                             .start()
                             .quantTable(0, 255)
                             .quantTable(1, 200)
                             .restartInterval(1)
                             .frame(640, 480, Sampling::k444)
                             .scanHeader()
                             .raw(first.bytes())
                             .frame(160, 120, Sampling::k444)
                             .restartInterval(0)
                             .scanHeader()
                             .raw(second.bytes())
                             .end()
                             .bytes();
    TestContext context;
    Bytes expected;
    for (const jpeg::ScanEngine& engine : jpeg::scanEngines()) {
        if (!engine.supported()) continue;
        context->engine = &engine;
        const Decoded decoded = runDecode(*context, 10, stream);
        EXPECT_EQ(decoded.code, kDecodeOk) << engine.name;
        ASSERT_EQ(decoded.picture.size(), targetPicture(10).totalBytes) << engine.name;
        if (expected.empty()) expected = decoded.picture;
        EXPECT_EQ(decoded.picture, expected) << engine.name;
    }
}

}  // namespace
