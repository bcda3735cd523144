// The bit reader and the decoding of symbols and coefficients.
#include <gtest/gtest.h>

#include "jpeg/bit_reader.h"
#include "jpeg/huffman.h"
#include "support/decode_run.h"
#include "support/scan_writer.h"

namespace {

// A context that is about to read `bytes`.
class Reading {
  public:
    explicit Reading(Bytes bytes) : m_bytes(std::move(bytes)) {
        context->cursors.inputCursor = m_bytes.data();
        context->cursors.inputRemaining = static_cast<uint32_t>(m_bytes.size());
    }
    TestContext context;

  private:
    Bytes m_bytes;
};

Bytes taken(const Bytes& stream) {
    Reading reading(stream);
    jpeg::BitReader reader(*reading.context);
    Bytes bytes;
    for (uint32_t value = 0; reader.byte(value);) bytes.push_back(static_cast<uint8_t>(value));
    return bytes;
}

}  // namespace

TEST(BitReader, DropsStuffedZerosAndKeepsMarkers) {
    EXPECT_EQ(taken({1, 0xFF, 0, 2}), Bytes({1, 0xFF, 2}));
    EXPECT_EQ(taken({0xFF, 0xD9, 3}), Bytes({0xFF, 0xD9, 3}));
    // The second of two 0xFF is a successor, so the zero behind it is data.
    EXPECT_EQ(taken({0xFF, 0xFF, 0, 4}), Bytes({0xFF, 0xFF, 0, 4}));
    EXPECT_EQ(taken({0xFF, 0, 0xFF, 0}), Bytes({0xFF, 0xFF}));
}

TEST(BitReader, AByteFFNeedsItsSuccessor) {
    EXPECT_EQ(taken({5, 0xFF}), Bytes({5}));
}

TEST(BitReader, CrossesChunks) {
    Bytes stream(3 * kInputChunkBytes + 7);
    for (size_t i = 0; i < stream.size(); ++i) stream[i] = static_cast<uint8_t>(i % 251);
    EXPECT_EQ(taken(stream), stream);
    stream[kInputChunkBytes - 1] = 0xFF;  // the stuffing stands in the next chunk
    stream[kInputChunkBytes] = 0;
    Bytes expected = stream;
    expected.erase(expected.begin() + kInputChunkBytes);
    EXPECT_EQ(taken(stream), expected);
}

TEST(BitReader, TakesBitsInOrder) {
    Reading reading({0xA5, 0x3C, 0xFF, 0x00, 0x01});
    jpeg::BitReader reader(*reading.context);
    ASSERT_TRUE(reader.need(3));
    EXPECT_EQ(reader.take(3), 5u);
    ASSERT_TRUE(reader.need(11));
    EXPECT_EQ(reader.peek(8), 0x29u);
    EXPECT_EQ(reader.take(11), 0x14Fu);
    reader.alignToByte();
    uint32_t value = 0;
    ASSERT_TRUE(reader.byte(value));
    EXPECT_EQ(value, 0xFFu);
    EXPECT_EQ(reader.take(0), 0u);
    ASSERT_TRUE(reader.byte(value));
    EXPECT_EQ(value, 1u);
    EXPECT_FALSE(reader.need(1));
}

TEST(BitReader, KeepsItsPlaceBetweenLifetimes) {
    Reading reading({0x12, 0x34, 0x56});
    uint32_t value = 0;
    { ASSERT_TRUE(jpeg::BitReader(*reading.context).byte(value)); }
    {
        jpeg::BitReader reader(*reading.context);
        ASSERT_TRUE(reader.need(4));
        EXPECT_EQ(reader.take(4), 3u);
    }
    EXPECT_EQ(reading.context->bitCount, 4);
    jpeg::BitReader reader(*reading.context);
    ASSERT_TRUE(reader.byte(value));
    EXPECT_EQ(value, 0x45u);
}

TEST(Coefficients, ExtendsEverySizeThatATableHas) {
    EXPECT_EQ(jpeg::extendSign(0, 0), 0);
    for (uint32_t size = 1; size <= 11; ++size) {
        const int32_t least = -(1 << size) + 1;
        EXPECT_EQ(jpeg::extendSign(0, size), least);
        EXPECT_EQ(jpeg::extendSign((1u << (size - 1)) - 1, size), -(1 << (size - 1)));
        EXPECT_EQ(jpeg::extendSign(1u << (size - 1), size), 1 << (size - 1));
        EXPECT_EQ(jpeg::extendSign((1u << size) - 1, size), -least);
    }
}

TEST(Coefficients, DcDifferencesAddUp) {
    ScanWriter writer;
    constexpr int32_t kDifferences[] = {0, 1, -1, 2047, -2047, 1024, -5, 0};
    for (int32_t difference : kDifferences) writer.dc(false, difference);
    Reading reading(writer.raw({0, 0}).bytes());
    jpeg::BitReader reader(*reading.context);
    int32_t predictor = 7;
    int32_t expected = 7;
    for (int32_t difference : kDifferences) {
        expected += difference;
        ASSERT_EQ(jpeg::decodeDc(reader, reading.context->huffman[0], predictor), kDecodeOk);
        EXPECT_EQ(predictor, expected);
    }
}

TEST(Coefficients, PredictorWraps) {
    Reading reading(ScanWriter().dc(false, 1).raw({0, 0}).bytes());
    jpeg::BitReader reader(*reading.context);
    int32_t predictor = INT32_MAX;
    ASSERT_EQ(jpeg::decodeDc(reader, reading.context->huffman[0], predictor), kDecodeOk);
    EXPECT_EQ(predictor, INT32_MIN);
}

TEST(Coefficients, BlocksComeBackAsWritten) {
    for (bool chroma : {false, true}) {
        Block block{};
        block[1] = 3;
        block[16] = -700;
        block[42] = 1;      // after more than 16 zeros
        block[63] = -1023;  // the last one: no end of block follows
        int32_t predictor = 0;
        ScanWriter writer;
        writer.block(chroma, block, predictor).raw({0, 0});
        Reading reading(writer.bytes());
        jpeg::BitReader reader(*reading.context);
        Block decoded{};
        ASSERT_EQ(jpeg::decodeDc(reader, reading.context->huffman[chroma], decoded[0]), kDecodeOk);
        const auto store = [&](uint32_t place, int32_t value) { decoded[place] = value; };
        ASSERT_EQ(jpeg::decodeAc(reader, reading.context->huffman[2 + chroma], store), kDecodeOk);
        EXPECT_EQ(decoded, block);
    }
}

// Decodes one luma AC sequence; returns the code, the stored values and the bits left over.
struct AcRun {
    uint32_t code;
    std::vector<std::pair<uint32_t, int32_t>> stored;
    Bytes rest;
};
static AcRun runAc(const Bytes& bytes) {
    Reading reading(bytes);
    AcRun run{};
    jpeg::BitReader reader(*reading.context);
    run.code = jpeg::decodeAc(reader, reading.context->huffman[2],
                              [&](uint32_t place, int32_t value) { run.stored.emplace_back(place, value); });
    reader.alignToByte();
    for (uint32_t value = 0; reader.byte(value);) run.rest.push_back(static_cast<uint8_t>(value));
    return run;
}

TEST(Coefficients, RunPastTheEndDropsItsCoefficientAndEndsTheBlock) {
    ScanWriter writer;
    for (int i = 0; i < 3; ++i) writer.zeroRun(false);
    writer.ac(false, 14, 9);  // k = 63: still stored
    EXPECT_EQ(runAc(ScanWriter(writer).raw({0x77}).bytes()).stored.size(), 1u);

    ScanWriter past;
    for (int i = 0; i < 3; ++i) past.zeroRun(false);
    past.ac(false, 15, 9).raw({0x77, 0x66});  // k = 64: dropped, its bits are taken
    const AcRun run = runAc(past.bytes());
    EXPECT_EQ(run.code, kDecodeOk);
    EXPECT_TRUE(run.stored.empty());
    EXPECT_EQ(run.rest, Bytes({0x77, 0x66}));
}

TEST(Coefficients, FourZeroRunsEndTheBlock) {
    ScanWriter writer;
    for (int i = 0; i < 4; ++i) writer.zeroRun(false);
    const AcRun run = runAc(writer.raw({0x77}).bytes());
    EXPECT_EQ(run.code, kDecodeOk);
    EXPECT_EQ(run.rest, Bytes({0x77}));
}

TEST(Coefficients, TooLongACodeFailsAtOnce) {
    struct Case {
        uint32_t slot, longest, code;
    };
    // All-ones is no code of any table. The bits end right behind the longest length: not one more is asked
    // for.
    for (const Case& item : {Case{0, 9, kDecodeBadDcCode}, Case{1, 11, kDecodeBadDcCode},
                             Case{2, 16, kDecodeBadAcCode}, Case{3, 16, kDecodeBadAcCode}}) {
        // Ones only, stuffed: 16 bits.
        Reading reading({0xFF, 0, 0xFF, 0});
        {
            jpeg::BitReader reader(*reading.context);
            ASSERT_TRUE(reader.need(16));
            reader.drop(static_cast<int32_t>(16 - item.longest));
        }
        jpeg::BitReader reader(*reading.context);
        uint32_t symbol = 0;
        EXPECT_EQ(jpeg::decodeSymbol(reader, reading.context->huffman[item.slot], item.code, symbol),
                  item.code)
            << item.slot;
    }
}

TEST(Coefficients, EndOfInputInsideACode) {
    for (const Bytes& bytes : {Bytes{}, Bytes{0xFE}}) {
        Reading reading(bytes);
        jpeg::BitReader reader(*reading.context);
        int32_t predictor = 0;
        EXPECT_EQ(jpeg::decodeDc(reader, reading.context->huffman[1], predictor), kDecodeInputEnded);
    }
    // A short code at the very end: eight bits are looked at, and only four are left.
    Reading reading({0x0A});
    jpeg::BitReader reader(*reading.context);
    ASSERT_TRUE(reader.need(8));
    reader.drop(4);
    uint32_t symbol = 0;
    EXPECT_EQ(jpeg::decodeSymbol(reader, reading.context->huffman[2], kDecodeBadAcCode, symbol),
              kDecodeInputEnded);
}
