// Tables that everything else stands on.
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "jpeg/color_tables.h"
#include "jpeg/decoder.h"
#include "jpeg/inverse_dct.h"
#include "jpeg/zigzag.h"
#include "support/decode_run.h"

using jpeg::kColorTables;

TEST(TargetPicture, EveryMode) {
    constexpr uint32_t kSizes[7][2] = {{320, 240}, {240, 180}, {160, 120}, {80, 60},
                                       {40, 30},   {20, 15},   {240, 180}};
    for (int32_t mode = 1; mode <= 14; ++mode) {
        const TargetPicture target = targetPicture(mode);
        EXPECT_EQ(target.width, kSizes[(mode - 1) % 7][0]) << mode;
        EXPECT_EQ(target.height, kSizes[(mode - 1) % 7][1]) << mode;
        EXPECT_EQ(target.planar, mode == 7 || mode == 14) << mode;
        EXPECT_EQ(target.bytesPerPixel, target.planar ? 1u : mode < 7 ? 2u : 3u) << mode;
        EXPECT_EQ(target.totalBytes, target.rowBytes * target.height) << mode;
    }
    for (int32_t mode : {-1, 0, 15, 99}) EXPECT_EQ(targetPicture(mode).totalBytes, 0u) << mode;
}

TEST(TargetPicture, RowsOf24BitsArePaddedToFourBytes) {
    EXPECT_EQ(pictureRowBytes(75, 3), 228u);
    EXPECT_EQ(pictureRowBytes(76, 3), 228u);
    EXPECT_EQ(pictureRowBytes(77, 3), 232u);
    EXPECT_EQ(pictureRowBytes(75, 2), 150u);
    EXPECT_EQ(pictureRowBytes(75, 1), 75u);
    EXPECT_EQ(targetPicture(6).rowBytes, 40u);
    EXPECT_EQ(targetPicture(13).rowBytes, 60u);
}

TEST(Zigzag, IsAPermutationAlongDiagonals) {
    const std::set<int> places(std::begin(jpeg::kZigzag), std::end(jpeg::kZigzag));
    EXPECT_EQ(places.size(), 64u);
    for (int k = 1; k < 64; ++k) {
        const int before = jpeg::kZigzag[k - 1] / 8 + jpeg::kZigzag[k - 1] % 8;
        const int here = jpeg::kZigzag[k] / 8 + jpeg::kZigzag[k] % 8;
        EXPECT_TRUE(here == before || here == before + 1) << k;
    }
    EXPECT_EQ(jpeg::kZigzag[1], 1);
    EXPECT_EQ(jpeg::kZigzag[2], 8);
    EXPECT_EQ(jpeg::kZigzag[9], 24);
    EXPECT_EQ(jpeg::kZigzag[62], 62);
}

TEST(ColorTables, SharesAreRoundedQuarters) {
    for (int i = 0; i < 256; ++i) {
        EXPECT_EQ(kColorTables.crToR[i], std::lround(4 * 1.402 * (i - 128))) << i;
        EXPECT_EQ(kColorTables.cbToG[i], std::lround(-4 * 0.34414 * (i - 128))) << i;
        EXPECT_EQ(kColorTables.crToG[i], std::lround(-4 * 0.714136 * (i - 128))) << i;
        EXPECT_EQ(kColorTables.cbToB[i], std::lround(4 * 1.772 * (i - 128))) << i;
        EXPECT_EQ(kColorTables.yToIndex[i], 4 * i);
    }
    EXPECT_EQ(kColorTables.cbToB[0], -907);
}

TEST(ColorTables, ClampHoldsEveryIndexThatCanOccur) {
    const auto clamp = [](int quarters) { return kColorTables.clampQuarter[jpeg::kClampBelow + quarters]; };
    for (int quarters = -1024; quarters < 2048; ++quarters) {
        EXPECT_EQ(clamp(quarters), quarters < 0 ? 0 : quarters >= 1020 ? 255 : quarters / 4) << quarters;
    }
    int least = 0;
    int most = 0;
    for (int chroma = 0; chroma < 256; ++chroma) {
        for (int share : {kColorTables.crToR[chroma], kColorTables.cbToB[chroma]}) {
            least = std::min(least, share);
            most = std::max(most, 1020 + share);
        }
    }
    least = std::min(least, kColorTables.cbToG[255] + kColorTables.crToG[255]);
    most = std::max(most, 1020 + kColorTables.cbToG[0] + kColorTables.crToG[0]);
    EXPECT_GE(least, -1024);
    EXPECT_LT(most, 2048);
}

TEST(ColorTables, PacksRgb565) {
    for (int i = 0; i < 256; ++i) {
        EXPECT_EQ(kColorTables.red565[i], (i & 0xF8) << 8);
        EXPECT_EQ(kColorTables.green565[i], (i & 0xFC) << 3);
        EXPECT_EQ(kColorTables.blue565[i], i >> 3);
    }
}

TEST(Prescale, IsTheProductOfItsWeights) {
    constexpr double kWeights[8] = {1,   3.624509785 / 4, 0.5, 1.272758580 / 4,
                                    0.5, 0.850430095 / 4, 0.5, 0.720959822 / 4};
    uint32_t table[64];
    std::fill(std::begin(table), std::end(table), 1);
    jpeg::prescaleQuantTable(table);
    for (int place = 0; place < 64; ++place) {
        EXPECT_EQ(table[place], std::lround(131072 * kWeights[place / 8] * kWeights[place % 8])) << place;
    }
    jpeg::prescaleQuantTable(table);
    EXPECT_EQ(table[4], 65536u * 65536u) << "wraps to 0";
    EXPECT_EQ(table[9], static_cast<uint32_t>(uint64_t{107619} * 107619));
}

TEST(HuffmanTables, LongestCodesAndSymbols) {
    TestContext context;
    constexpr uint16_t kLongest[4] = {9, 11, 16, 16};
    constexpr uint32_t kSymbols[4] = {12, 12, 162, 162};
    for (int slot = 0; slot < 4; ++slot) {
        const HuffmanTable& table = context->huffman[slot];
        EXPECT_EQ(table.maxLength, kLongest[slot]);
        uint32_t count = 0;
        for (int length = 1; length <= 16; ++length) count += table.bits[length];
        EXPECT_EQ(count, kSymbols[slot]);
        const std::set<uint8_t> distinct(table.huffVal, table.huffVal + count);
        EXPECT_EQ(distinct.size(), count);
    }
}

TEST(HuffmanTables, LookaheadAndLongCodesAgreeWithTheCanonicalCodes) {
    TestContext context;
    for (const HuffmanTable& table : context->huffman) {
        uint32_t code = 0;
        uint32_t index = 0;
        uint32_t lookaheads = 0;
        for (uint32_t length = 1; length <= 16; ++length, code <<= 1) {
            EXPECT_TRUE(table.bits[length] != 0 || table.maxCode[length] == -1);
            for (uint32_t n = 0; n < table.bits[length]; ++n, ++code, ++index) {
                EXPECT_EQ(table.valOffset[length] + static_cast<int32_t>(code), static_cast<int32_t>(index));
                EXPECT_GE(table.maxCode[length], static_cast<int32_t>(code));
                if (length > 8) continue;
                for (uint32_t rest = 0; rest < 1u << (8 - length); ++rest, ++lookaheads) {
                    EXPECT_EQ(table.lookLength[(code << (8 - length)) + rest], length);
                    EXPECT_EQ(table.lookValue[(code << (8 - length)) + rest], table.huffVal[index]);
                }
            }
        }
        uint32_t known = 0;
        for (uint8_t length : table.lookLength) known += length != 0;
        EXPECT_EQ(known, lookaheads);
    }
}

TEST(HuffmanTables, BuilderReturnsItsContext) {
    TestContext context;
    EXPECT_EQ(buildHuffmanTables(*context), &*context);
    // The first codes of Annex K, by hand: DC luminance 00 = 0, 010 = 1; AC luminance 1010 = end of block.
    EXPECT_EQ(context->huffman[0].lookLength[0x00], 2);
    EXPECT_EQ(context->huffman[0].lookValue[0x40], 1);
    EXPECT_EQ(context->huffman[2].lookLength[0xA0], 4);
    EXPECT_EQ(context->huffman[2].lookValue[0xA0], 0);
    EXPECT_EQ(context->huffman[1].lookValue[0x00], 0);
    EXPECT_EQ(context->huffman[3].lookValue[0x00], 0);
}
