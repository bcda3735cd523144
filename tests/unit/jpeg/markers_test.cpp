// The marker loop, and the segments that are parsed or skipped.
#include <gtest/gtest.h>

#include "support/decode_run.h"
#include "support/scan_writer.h"

namespace {

constexpr int32_t kMode = 13;  // 20 x 15, 24 bit
const Bytes kNothing;

// A picture that decodes in mode 13: one MCU row of 32 x 8 (reduction 1), the frame after whatever came
// before.
JpegStream& addPicture(JpegStream& stream) {
    stream.quantTable(0, 8).quantTable(1, 8).frame(32, 8, Sampling::k444).scanHeader();
    return stream.raw(greyScan(4, Sampling::k444)).end();
}

uint32_t codeOf(const JpegStream& stream) {
    return runDecode(kMode, stream.bytes()).code;
}

}  // namespace

TEST(Markers, EmptyInputIsElevenEvenWithABadMode) {
    EXPECT_EQ(runDecode(1, {}).code, kDecodeInputEnded);
    EXPECT_EQ(runDecode(0, {}).code, kDecodeInputEnded);
    EXPECT_EQ(runDecode(15, {}).code, kDecodeInputEnded);
}

TEST(Markers, BadModes) {
    JpegStream stream;
    addPicture(stream.start());
    for (int32_t mode : {-1, 0, 15, 65537}) {
        const Decoded decoded = runDecode(mode, stream.bytes());
        EXPECT_EQ(decoded.code, kDecodeUnsupported) << mode;
        EXPECT_TRUE(decoded.picture.empty());
    }
}

TEST(Markers, EndRightAfterStartLeavesThePictureAlone) {
    TestContext context;
    const Decoded decoded = runDecode(*context, kMode, JpegStream().start().end().bytes());
    EXPECT_EQ(decoded.code, kDecodeOk);
    EXPECT_TRUE(decoded.picture.empty());
    for (uint8_t statistic : context->frameStats) EXPECT_EQ(statistic, 0);
}

TEST(Markers, StatisticsTuningIsSetOnRequestOnly) {
    TestContext context;
    const Bytes stream = JpegStream().start().end().bytes();
    runDecode(*context, kMode, stream, 0);
    EXPECT_EQ(context->statsTuning[0], 0);
    EXPECT_EQ(runDecode(*context, kMode, stream, 1).code, kDecodeOk);
    EXPECT_EQ(std::vector<uint16_t>(context->statsTuning, context->statsTuning + 4),
              std::vector<uint16_t>({128, 384, 115, 384}));
    for (uint8_t statistic : context->frameStats) EXPECT_EQ(statistic, 0);
}

TEST(Markers, GarbageBeforeAMarkerIsPassedOver) {
    JpegStream stream;
    stream.raw({1, 2, 3}).start().raw({0, 0xD9, 0x7F});
    EXPECT_EQ(codeOf(addPicture(stream)), kDecodeOk);
}

TEST(Markers, WithoutStartAPictureDecodes) {
    JpegStream stream;
    EXPECT_EQ(codeOf(addPicture(stream)), kDecodeOk);
}

TEST(Markers, UnsupportedOnesEndTheDecode) {
    for (uint32_t marker = 0; marker < 256; ++marker) {
        const bool known = marker == 0xC0 || marker == 0xC4 || (marker >= 0xD8 && marker <= 0xDB) ||
                           marker == 0xDD || (marker >= 0xE0 && marker <= 0xEF) || marker == 0xFE;
        if (known) continue;
        JpegStream stream;
        stream.start().marker(static_cast<uint8_t>(marker)).raw({0, 4, 0, 0});
        EXPECT_EQ(codeOf(addPicture(stream)), kDecodeInputEnded) << marker;
    }
}

TEST(Markers, FillBytesAreNotSupported) {
    JpegStream stream;
    stream.start().raw({0xFF});
    EXPECT_EQ(codeOf(addPicture(stream)), kDecodeInputEnded);
}

TEST(Markers, TheFirstByteIsNotLookedAtForStuffing) {
    // 0xFF stands alone in the reservoir, so the zero behind it is a marker code, and no supported one.
    EXPECT_EQ(codeOf(JpegStream().raw({0xFF, 0x00}).start().end()), kDecodeInputEnded);
    // Anywhere else it is dropped, and the byte after it is the code.
    EXPECT_EQ(codeOf(JpegStream().raw({0x01, 0xFF, 0x00, 0xD9})), kDecodeOk);
    EXPECT_EQ(codeOf(JpegStream().raw({0xFF})), kDecodeInputEnded);
}

TEST(Markers, WithoutEndTheInputRunsOut) {
    JpegStream stream;
    addPicture(stream.start());
    Bytes bytes = stream.bytes();
    bytes[bytes.size() - 2] = 0;  // in place of the marker: codes are looked up eight bits at a time
    const Decoded decoded = runDecode(kMode, bytes);
    EXPECT_EQ(decoded.code, kDecodeInputEnded);
    EXPECT_EQ(decoded.picture.size(), targetPicture(kMode).totalBytes);
}

TEST(SkippedSegments, EveryKind) {
    JpegStream stream;
    stream.start().segment(0xC4, {1, 2, 3}).segment(0xFE, {0xD9, 0xD8, 4});
    for (uint32_t marker = 0xE0; marker <= 0xEF; ++marker) {
        stream.segment(static_cast<uint8_t>(marker), {0xFF, 0xD9, static_cast<uint8_t>(marker)});
    }
    EXPECT_EQ(codeOf(addPicture(stream)), kDecodeOk);
}

TEST(SkippedSegments, AcrossChunks) {
    // Sizes around a chunk's end, and segments that go through several chunks.
    for (size_t size : {0, 1, 40000, 40951, 40952, 40953, 40954, 40955, 40960, 65533}) {
        JpegStream stream;
        stream.start().segment(0xE1, Bytes(size, 0xFF)).segment(0xE2, Bytes(size, 0xD9)).segment(0xFE, {});
        EXPECT_EQ(codeOf(addPicture(stream)), kDecodeOk) << size;
    }
}

TEST(SkippedSegments, AreCountedAsTheBytesStand) {
    JpegStream stream;
    stream.start().segment(0xE0, {0xFF, 0x00, 0xFF, 0xD9, 0xFF, 0x00});
    EXPECT_EQ(codeOf(addPicture(stream)), kDecodeOk);
    // A writer that counts each stuffed pair as one byte: what is left over holds no 0xFF and is passed over.
    JpegStream other;
    other.start().marker(0xE0).raw({0, 2 + 5, 0xFF, 0x00, 0xFF, 0x00, 1, 2, 3});
    EXPECT_EQ(codeOf(addPicture(other)), kDecodeOk);
}

TEST(SkippedSegments, LengthsThatHoldFF) {
    for (size_t length : {0x01FF, 0xFF00, 0xFF01, 0xFFFF, 0x00FF}) {
        for (uint8_t first : {0x00, 0x01, 0xFF}) {
            Bytes content(length - 2, 0xD9);
            content[0] = first;
            JpegStream stream;
            EXPECT_EQ(codeOf(addPicture(stream.start().segment(0xE5, content))), kDecodeOk)
                << length << " " << int(first);
        }
    }
}

TEST(SkippedSegments, LengthsTooSmallForThemselvesSkipNothing) {
    for (uint8_t length : {0, 1, 2}) {
        JpegStream stream;
        stream.start().marker(0xE0).raw({0, length});
        EXPECT_EQ(codeOf(addPicture(stream)), kDecodeOk) << int(length);
    }
}

TEST(SkippedSegments, CutShort) {
    JpegStream stream;
    stream.start().segment(0xE0, Bytes(50000, 1));
    for (size_t size : {3u, 4u, 5u, 6u, 7u, 40960u, 40961u, 50000u}) {
        Bytes bytes = stream.bytes();
        bytes.resize(size);
        EXPECT_EQ(runDecode(kMode, bytes).code, kDecodeInputEnded) << size;
    }
}

TEST(QuantTables, LandInNaturalOrder) {
    Bytes steps(64);
    for (uint8_t k = 0; k < 64; ++k) steps[k] = static_cast<uint8_t>(k + 1);
    TestContext context;
    runDecode(*context, kMode, JpegStream().start().quantTable(2, steps).bytes());
    EXPECT_EQ(context->quantTables[2][0], 1u);
    EXPECT_EQ(context->quantTables[2][1], 2u);
    EXPECT_EQ(context->quantTables[2][8], 3u);
    EXPECT_EQ(context->quantTables[2][16], 4u);
    EXPECT_EQ(context->quantTables[2][63], 64u);
    EXPECT_EQ(context->quantTablesRead, 1 << 2);
}

TEST(QuantTables, SeveralInOneSegment) {
    Bytes content;
    for (uint8_t number = 0; number < 4; ++number) {
        content.push_back(number);
        content.insert(content.end(), 64, static_cast<uint8_t>(10 + number));
    }
    TestContext context;
    EXPECT_EQ(runDecode(*context, kMode, JpegStream().start().segment(0xDB, content).end().bytes()).code,
              kDecodeOk);
    for (uint32_t number = 0; number < 4; ++number) EXPECT_EQ(context->quantTables[number][63], 10 + number);
    EXPECT_EQ(context->quantTablesRead, 15);
}

TEST(QuantTables, TheLengthDecidesHowMany) {
    const Bytes table(64, 3);
    // One byte beyond a table is the header of another, however short the segment.
    JpegStream longer;
    longer.start().marker(0xDB).raw({0, 2 + 66, 0}).raw(table).raw({1}).raw(table).end();
    TestContext context;
    EXPECT_EQ(runDecode(*context, kMode, longer.bytes()).code, kDecodeOk);
    EXPECT_EQ(context->quantTablesRead, 3);
    // The first is read even from a segment without room for it.
    for (uint8_t length : {0, 2, 3, 67}) {
        JpegStream shorter;
        shorter.start().marker(0xDB).raw({0, length, 1}).raw(table).end();
        EXPECT_EQ(runDecode(*context, kMode, shorter.bytes()).code, kDecodeOk) << int(length);
        EXPECT_EQ(context->quantTablesRead, 2);
    }
}

TEST(QuantTables, Refusals) {
    for (uint8_t header : {0x04, 0x0F, 0x10, 0x13, 0xF0}) {
        EXPECT_EQ(codeOf(JpegStream().start().quantTable(header, 1).end()), kDecodeBadQuantTable)
            << int(header);
    }
    for (uint8_t header : {0x04, 0x0F, 0x14, 0xFF}) {
        Bytes content(1 + 64, 0);
        content.push_back(header);
        content.insert(content.end(), 64, 1);
        EXPECT_EQ(codeOf(JpegStream().start().segment(0xDB, content).end()), kDecodeBadQuantTable)
            << int(header);
    }
}

TEST(QuantTables, OnlyTheFirstPrecisionIsChecked) {
    Bytes content(1 + 64, 1);
    content[0] = 0;
    content.push_back(0x11);
    content.insert(content.end(), 64, 9);
    TestContext context;
    EXPECT_EQ(runDecode(*context, kMode, JpegStream().start().segment(0xDB, content).end().bytes()).code,
              kDecodeOk);
    EXPECT_EQ(context->quantTables[1][63], 9u);
}

TEST(QuantTables, AStuffedZeroIsLost) {
    // 0xFF 0x00 inside a parsed segment: the zero is taken for stuffing, so the table ends a byte late.
    Bytes steps(64, 5);
    steps[10] = 0xFF;
    steps[11] = 0x00;
    TestContext context;
    runDecode(*context, kMode, JpegStream().start().quantTable(0, steps).raw({77}).end().bytes());
    EXPECT_EQ(context->quantTables[0][63], 77u);
}

TEST(RestartInterval, IsRead) {
    TestContext context;
    EXPECT_EQ(runDecode(*context, kMode, JpegStream().start().restartInterval(0x1234).end().bytes()).code,
              kDecodeOk);
    EXPECT_EQ(context->restartInterval, 0x1234);
    EXPECT_EQ(runDecode(*context, kMode, JpegStream().start().end().bytes()).code, kDecodeOk);
    EXPECT_EQ(context->restartInterval, 0) << "each decode starts without one";
}

TEST(RestartInterval, OtherLengthsAreRefused) {
    for (size_t size : {0, 1, 3, 300}) {
        EXPECT_EQ(codeOf(JpegStream().start().segment(0xDD, Bytes(size, 0)).end()), kDecodeBadRestartSegment)
            << size;
    }
}

TEST(RestartInterval, AStuffedZeroIsLost) {
    TestContext context;
    runDecode(*context, kMode, JpegStream().start().segment(0xDD, {0xFF, 0x00}).raw({7}).end().bytes());
    EXPECT_EQ(context->restartInterval, 0xFF07);
}

TEST(Segments, CutShortAnywhere) {
    JpegStream stream;
    addPicture(stream.start().restartInterval(9).segment(0xE0, {1, 2}));
    for (size_t size = 0; size < stream.bytes().size(); ++size) {
        Bytes bytes = stream.bytes();
        bytes.resize(size);
        EXPECT_EQ(runDecode(kMode, bytes).code, kDecodeInputEnded) << size;
    }
}
