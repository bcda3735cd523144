// Scan headers, restart points, and what is delivered when.
#include <gtest/gtest.h>

#include "support/decode_run.h"
#include "support/scan_writer.h"

namespace {

constexpr int32_t kMode = 13;  // 20 x 15, 24 bit
constexpr uint32_t kRowBytes = 60;
constexpr uint32_t kPictureBytes = 900;

// Reduction 8: every block is one sample, and 160 x 120 in 4:4:4 is exactly the picture of mode 13.
constexpr uint32_t kWidth = 160;
constexpr uint32_t kHeight = 120;
constexpr uint32_t kMcus = 300;
constexpr uint32_t kMcusPerRow = 20;

JpegStream header(uint16_t restartInterval = 0) {
    JpegStream stream;
    stream.start().quantTable(0, 8).quantTable(1, 8);
    if (restartInterval != 0) stream.restartInterval(restartInterval);
    return stream.frame(kWidth, kHeight, Sampling::k444).scanHeader();
}

// MCUs whose luma rises or falls by `difference` each; a step of 8 makes that the difference of the samples.
ScanWriter& mcus(ScanWriter& writer, uint32_t count, int32_t difference = 0) {
    for (uint32_t n = 0; n < count; ++n) {
        writer.flatBlock(false, difference).flatBlock(true, 0).flatBlock(true, 0);
    }
    return writer;
}

// An MCU that ends in a long code: looking up its last symbol asks for no byte beyond the scan's.
ScanWriter& mcuThatNeedsNoMore(ScanWriter& writer) {
    writer.flatBlock(false, 0).flatBlock(true, 0).dc(true, 0);
    for (int i = 0; i < 3; ++i) writer.zeroRun(true);
    return writer.ac(true, 14, 500);
}

Decoded run(const JpegStream& head, ScanWriter& scan, const Bytes& tail = {0xFF, 0xD9}) {
    return runDecode(kMode, JpegStream(head).raw(scan.bytes()).raw(tail).bytes());
}

uint32_t codeWithScanHeader(const Bytes& content, int32_t mode = kMode) {
    JpegStream stream;
    stream.start().quantTable(0, 8).quantTable(1, 8).frame(kWidth, kHeight, Sampling::k444);
    stream.segment(0xDA, content).raw(greyScan(kMcus, Sampling::k444)).end();
    return runDecode(mode, stream.bytes()).code;
}

}  // namespace

TEST(ScanHeader, SpectralSelectionAndApproximation) {
    for (int32_t mode : {1, 3, 7, kMode}) {
        EXPECT_EQ(codeWithScanHeader({3, 1, 0, 2, 0x11, 3, 0x11, 0, 63, 0}, mode), kDecodeOk);
        EXPECT_EQ(codeWithScanHeader({3, 1, 0, 2, 0x11, 3, 0x11, 1, 63, 0}, mode), kDecodeBadSpectralStart);
        EXPECT_EQ(codeWithScanHeader({3, 1, 0, 2, 0x11, 3, 0x11, 0, 62, 0}, mode), kDecodeBadSpectralEnd);
        EXPECT_EQ(codeWithScanHeader({3, 1, 0, 2, 0x11, 3, 0x11, 0, 63, 1}, mode), kDecodeBadApproximation);
    }
}

TEST(ScanHeader, MustBeTheFrames) {
    for (int32_t mode : {7, kMode}) {
        EXPECT_EQ(codeWithScanHeader({1, 1, 0, 0, 63, 0}, mode), kDecodeUnsupported);
        EXPECT_EQ(codeWithScanHeader({0, 0, 63, 0}, mode), kDecodeUnsupported);
        EXPECT_EQ(codeWithScanHeader({4, 1, 0, 2, 0, 3, 0, 4, 0, 0, 63, 0}, mode), kDecodeUnsupported);
        EXPECT_EQ(codeWithScanHeader({3, 2, 0, 3, 0, 4, 0, 0, 63, 0}, mode), kDecodeUnsupported);
        EXPECT_EQ(codeWithScanHeader({3, 1, 0, 3, 0, 2, 0, 0, 63, 0}, mode), kDecodeUnsupported);
        EXPECT_EQ(codeWithScanHeader({3, 255, 0, 2, 0, 3, 0, 0, 63, 0}, mode), kDecodeUnsupported);
        EXPECT_EQ(codeWithScanHeader({3, 1, 0x20, 2, 0x11, 3, 0x11, 0, 63, 0}, mode), kDecodeUnsupported);
        EXPECT_EQ(codeWithScanHeader({3, 1, 0x00, 2, 0x12, 3, 0x11, 0, 63, 0}, mode), kDecodeUnsupported);
        EXPECT_EQ(codeWithScanHeader({3, 1, 0x00, 2, 0x11, 3, 0xF0, 0, 63, 0}, mode), kDecodeUnsupported);
    }
}

TEST(ScanHeader, TablesAreChosenPerComponent) {
    // Luma with the chrominance tables, chroma with the luminance ones.
    ScanWriter scan;
    for (uint32_t n = 0; n < kMcus; ++n)
        scan.flatBlock(true, n == 0 ? 5 : 0).flatBlock(false, 0).flatBlock(false, 0);
    JpegStream stream;
    stream.start().quantTable(0, 8).quantTable(1, 8).frame(kWidth, kHeight, Sampling::k444);
    stream.segment(0xDA, {3, 1, 0x11, 2, 0x00, 3, 0x00, 0, 63, 0}).raw(scan.bytes()).end();
    const Decoded decoded = runDecode(kMode, stream.bytes());
    EXPECT_EQ(decoded.code, kDecodeOk);
    EXPECT_EQ(decoded.picture, Bytes(kPictureBytes, 133));
    // DC and AC tables apart.
    ScanWriter mixed;
    for (uint32_t n = 0; n < kMcus; ++n) {
        for (int component = 0; component < 3; ++component) mixed.dc(true, 0).endOfBlock(false);
    }
    JpegStream other;
    other.start().quantTable(0, 8).quantTable(1, 8).frame(kWidth, kHeight, Sampling::k444);
    other.segment(0xDA, {3, 1, 0x10, 2, 0x10, 3, 0x10, 0, 63, 0}).raw(mixed.bytes()).end();
    EXPECT_EQ(runDecode(kMode, other.bytes()).code, kDecodeOk);
}

TEST(ScanHeader, TheLengthIsNotLookedAt) {
    JpegStream stream;
    stream.start().quantTable(0, 8).quantTable(1, 8).frame(kWidth, kHeight, Sampling::k444).marker(0xDA);
    stream.raw({0xAB, 0xCD, 3, 1, 0, 2, 0x11, 3, 0x11, 0, 63, 0}).raw(greyScan(kMcus, Sampling::k444)).end();
    EXPECT_EQ(runDecode(kMode, stream.bytes()).code, kDecodeOk);
}

TEST(ScanHeader, BeforeItsFrame) {
    JpegStream stream;
    stream.start().quantTable(0, 8).scanHeader().raw(greyScan(kMcus, Sampling::k444)).end();
    TestContext context;
    for (int32_t mode : {1, 7, kMode, 14}) {
        EXPECT_EQ(runDecode(*context, mode, stream.bytes()).code, kDecodeNoFrame) << mode;
        // A frame of an earlier decode does not count.
        ScanWriter grey;
        runDecode(*context, mode, header().raw(mcus(grey, kMcus).bytes()).end().bytes());
        EXPECT_EQ(runDecode(*context, mode, stream.bytes()).code, kDecodeNoFrame) << mode;
    }
}

TEST(Scan, OneSamplePerBlockAtReductionEight) {
    ScanWriter scan;
    Bytes expected;
    int32_t luma = 128;
    for (uint32_t n = 0; n < kMcus; ++n) {
        const int32_t difference = static_cast<int32_t>(n * 7 % 23) - 11;
        luma += difference;
        // AC coefficients are read and dropped.
        scan.dc(false, difference).ac(false, 3, -77).endOfBlock(false).flatBlock(true, 0).flatBlock(true, 0);
        expected.insert(expected.end(), 3, static_cast<uint8_t>(luma < 0 ? 0 : luma > 255 ? 255 : luma));
    }
    const Decoded decoded = run(header(), scan);
    EXPECT_EQ(decoded.code, kDecodeOk);
    EXPECT_EQ(decoded.picture, expected);
}

TEST(Scan, BadCodesKeepTheRowsFinishedByThen) {
    for (uint32_t good : {0u, 19u, 20u, 45u, 299u}) {
        ScanWriter dc;
        mcus(dc, good).bits(0x1FF, 9);
        Decoded decoded = run(header(), dc);
        EXPECT_EQ(decoded.code, kDecodeBadDcCode);
        EXPECT_EQ(decoded.picture.size(), good / kMcusPerRow * kRowBytes);

        ScanWriter ac;
        mcus(ac, good).flatBlock(false, 0).dc(true, 0).bits(0xFFFF, 16);
        decoded = run(header(), ac);
        EXPECT_EQ(decoded.code, kDecodeBadAcCode);
        EXPECT_EQ(decoded.picture.size(), good / kMcusPerRow * kRowBytes);
    }
}

TEST(Scan, InputEndsInside) {
    ScanWriter scan;
    mcus(scan, 45);
    const Decoded decoded = run(header(), scan, {});
    EXPECT_EQ(decoded.code, kDecodeInputEnded);
    EXPECT_EQ(decoded.picture.size(), 2 * kRowBytes);
}

TEST(Scan, ASecondOneDeliversNothingPastThePicture) {
    ScanWriter first;
    mcus(first, kMcus);
    ScanWriter second;
    mcus(second, kMcus, 3);
    for (int32_t mode : {7, 9, kMode}) {
        JpegStream stream = header();
        stream.raw(first.bytes()).scanHeader().raw(second.bytes()).end();
        const Decoded twice = runDecode(mode, stream.bytes());
        EXPECT_EQ(twice.code, kDecodeOk);
        EXPECT_EQ(twice.picture, runDecode(mode, header().raw(first.bytes()).end().bytes()).picture);
        EXPECT_EQ(twice.picture.size(), targetPicture(mode).totalBytes);
    }
}

TEST(Scan, ASecondFrameDeliversNothingPastThePicture) {
    ScanWriter first;
    mcus(first, kMcus);
    ScanWriter second;
    mcus(second, 4 * kMcus, 1);
    JpegStream stream = header();
    stream.raw(first.bytes()).frame(320, 240, Sampling::k444).scanHeader().raw(second.bytes()).end();
    const Decoded decoded = runDecode(kMode, stream.bytes());
    EXPECT_EQ(decoded.code, kDecodeOk);
    EXPECT_EQ(decoded.picture, Bytes(kPictureBytes, 128));
}

TEST(Scan, ThePreScaleIsAppliedForEachScan) {
    // 96 x 64 is reduced by 4 in mode 13. The second scan sees tables scaled twice; 131072 squared wraps to
    // 0.
    TestContext context;
    JpegStream stream;
    stream.start()
        .quantTable(0, 8)
        .quantTable(1, 8)
        .quantTable(3, 1)
        .frame(96, 64, Sampling::k444)
        .scanHeader();
    stream.raw(greyScan(96, Sampling::k444));
    runDecode(*context, kMode, JpegStream(stream).end().bytes());
    EXPECT_EQ(context->scaleDiv, 4);
    EXPECT_EQ(context->quantTables[0][0], 8u * 131072);
    EXPECT_EQ(context->quantTables[3][9], 107619u) << "by its number, not by its place among those read";
    EXPECT_EQ(context->quantTables[2][0], 0u);
    stream.quantTable(1, 2).scanHeader().raw(greyScan(96, Sampling::k444));
    runDecode(*context, kMode, JpegStream(stream).end().bytes());
    EXPECT_EQ(context->quantTables[0][9], static_cast<uint32_t>(uint64_t{8} * 107619 * 107619));
    EXPECT_EQ(context->quantTables[1][0], 2u * 131072) << "read anew between the scans";
}

TEST(Scan, TablesOfAnEarlierDecodeAreNotScaledAgain) {
    TestContext context;
    JpegStream stream;
    stream.start()
        .quantTable(0, 8)
        .quantTable(1, 8)
        .quantTable(2, 1)
        .frame(96, 64, Sampling::k444)
        .scanHeader();
    runDecode(*context, kMode, stream.raw(greyScan(96, Sampling::k444)).end().bytes());
    JpegStream next;
    next.start().quantTable(0, 8).frame(96, 64, Sampling::k444).scanHeader();
    runDecode(*context, kMode, next.raw(greyScan(96, Sampling::k444)).end().bytes());
    EXPECT_EQ(context->quantTables[0][0], 8u * 131072);
    EXPECT_EQ(context->quantTables[2][0], 131072u);
}

TEST(Restart, MarkersResetThePredictors) {
    ScanWriter scan;
    for (uint32_t row = 0; row < 15; ++row) {
        mcus(scan, 1, 50);
        mcus(scan, kMcusPerRow - 1);
        if (row != 14) scan.raw({0xFF, static_cast<uint8_t>(0xD0 + row % 8)});
    }
    const Decoded decoded = run(header(kMcusPerRow), scan);
    EXPECT_EQ(decoded.code, kDecodeOk);
    EXPECT_EQ(decoded.picture, Bytes(kPictureBytes, 178));
}

TEST(Restart, AnyNumberIsAccepted) {
    for (uint8_t number = 0; number < 8; ++number) {
        ScanWriter scan;
        mcus(scan, 1, 50);
        mcus(scan, 149).raw({0xFF, static_cast<uint8_t>(0xD0 + number)});
        mcus(scan, 1, 50);
        mcus(scan, 149);
        const Decoded decoded = run(header(150), scan);
        EXPECT_EQ(decoded.code, kDecodeOk);
        EXPECT_EQ(decoded.picture, Bytes(kPictureBytes, 178));
    }
}

TEST(Restart, MissingMarkerKeepsPredictors) {
    ScanWriter scan;
    mcus(scan, 1, 50);
    mcus(scan, 149).align();  // no marker, yet aligned
    mcus(scan, 1, 20);
    mcus(scan, 149);
    const Decoded decoded = run(header(150), scan);
    EXPECT_EQ(decoded.code, kDecodeOk);
    EXPECT_EQ(decoded.picture.front(), 178);
    EXPECT_EQ(decoded.picture.back(), 198);
}

TEST(Restart, AnotherMarkerEndsTheScan) {
    // The rows before it are delivered, the one at whose end it stands included; then the marker is handled.
    for (uint32_t rows : {1u, 2u, 14u}) {
        ScanWriter scan;
        mcus(scan, rows * kMcusPerRow);
        const Decoded ended = run(header(kMcusPerRow * rows), scan);
        EXPECT_EQ(ended.code, kDecodeOk) << rows;
        EXPECT_EQ(ended.picture.size(), rows * kRowBytes);
        EXPECT_EQ(run(header(kMcusPerRow * rows), scan, {0xFF, 0xC2}).code, kDecodeInputEnded);
        // A stuffed 0xFF at a restart point passes for a marker's first byte.
        EXPECT_EQ(run(header(kMcusPerRow * rows), scan, {0xFF, 0x00, 0xD9}).code, kDecodeOk);
    }
}

TEST(Restart, AScanMayGoOnAfterASegment) {
    // A table between two halves of a picture: the rest comes as a scan of its own, from its own top.
    ScanWriter half;
    mcus(half, 150);
    ScanWriter rest;
    mcus(rest, kMcus, 0);
    JpegStream stream = header(150);
    stream.raw(half.bytes()).restartInterval(0).scanHeader().raw(rest.bytes()).end();
    const Decoded decoded = runDecode(kMode, stream.bytes());
    EXPECT_EQ(decoded.code, kDecodeOk);
    EXPECT_EQ(decoded.picture.size(), kPictureBytes) << "7.5 rows, then as many as are missing";
}

TEST(Restart, TheCheckFollowsTheLastMcuToo) {
    ScanWriter scan;
    mcus(scan, kMcus);
    // A marker there, an end there, nothing there: always after the last row has been delivered.
    Decoded decoded = run(header(kMcus), scan, {0xFF, 0xD3, 0xFF, 0xD9});
    EXPECT_EQ(decoded.code, kDecodeOk);
    EXPECT_EQ(decoded.picture.size(), kPictureBytes);
    decoded = run(header(kMcus), scan);
    EXPECT_EQ(decoded.code, kDecodeOk);
    EXPECT_EQ(decoded.picture.size(), kPictureBytes);
    ScanWriter cut;
    mcuThatNeedsNoMore(mcus(cut, kMcus - 1));
    decoded = run(header(kMcus), cut, {});
    EXPECT_EQ(decoded.code, kDecodeInputEnded);
    EXPECT_EQ(decoded.picture.size(), kPictureBytes);
    // Without a check at the end, a restart marker is one outside a scan.
    EXPECT_EQ(run(header(), scan, {0xFF, 0xD3, 0xFF, 0xD9}).code, kDecodeInputEnded);
}

TEST(Restart, RowsAreDeliveredBeforeTheCheck) {
    ScanWriter scan;
    mcuThatNeedsNoMore(mcus(scan, kMcusPerRow - 1));
    const Decoded decoded = run(header(kMcusPerRow), scan, {});
    EXPECT_EQ(decoded.code, kDecodeInputEnded);
    EXPECT_EQ(decoded.picture.size(), kRowBytes);
}

TEST(Planar, DeliversAfterTheScanOnly) {
    ScanWriter cut;
    mcus(cut, kMcus - 1);
    Decoded decoded = runDecode(7, header().raw(cut.bytes()).bytes());
    EXPECT_EQ(decoded.code, kDecodeInputEnded);
    EXPECT_TRUE(decoded.picture.empty());
    ScanWriter bad;
    mcus(bad, kMcus - 1).bits(0x1FF, 9);
    decoded = runDecode(14, header().raw(bad.bytes()).end().bytes());
    EXPECT_EQ(decoded.code, kDecodeBadDcCode);
    EXPECT_TRUE(decoded.picture.empty());
}

TEST(Planar, AScanEndedOnAMarkerIsDeliveredWithTheRestBlack) {
    ScanWriter scan;
    mcus(scan, 20 * 5, 0);
    TestContext context;
    // A bright picture before it must not shine through.
    ScanWriter bright;
    mcus(bright, 1, 100);
    mcus(bright, kMcus - 1);
    runDecode(*context, 7, header().raw(bright.bytes()).end().bytes());
    const Decoded decoded = runDecode(*context, 7, header(100).raw(scan.bytes()).end().bytes());
    EXPECT_EQ(decoded.code, kDecodeOk);
    ASSERT_EQ(decoded.picture.size(), 240u * 180);
    EXPECT_EQ(decoded.picture[0], 128);
    EXPECT_EQ(decoded.picture[240 * 59], 128);  // 40 of 120 rows are there
    EXPECT_EQ(decoded.picture[240 * 61], 0);
}

TEST(Planar, GreyFrames) {
    JpegStream stream;
    stream.start().quantTable(0, 8).frame(320, 240, {{4, 0x11, 0}}).scanHeader(1, 4);
    ScanWriter scan;
    for (int n = 0; n < 1200; ++n) scan.flatBlock(false, n == 0 ? -28 : 0);
    const Decoded decoded = runDecode(7, stream.raw(scan.bytes()).end().bytes());
    EXPECT_EQ(decoded.code, kDecodeOk);
    EXPECT_EQ(decoded.picture, Bytes(240 * 180, 100));
    EXPECT_EQ(runDecode(14, stream.bytes()).picture, decoded.picture);
}
