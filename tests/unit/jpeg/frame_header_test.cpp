#include <gtest/gtest.h>

#include "support/decode_run.h"
#include "support/scan_writer.h"

namespace {

// The context after a stream of one frame header.
class Header {
  public:
    Header(int32_t mode, uint32_t width, uint32_t height, const std::vector<StreamComponent>& components) {
        const Bytes stream = JpegStream().start().frame(width, height, components).end().bytes();
        code = runDecode(*context, mode, stream).code;
    }
    Header(int32_t mode, uint32_t width, uint32_t height, Sampling sampling)
        : Header(mode, width, height, threeComponents(sampling)) {}
    TestContext context;
    uint32_t code;
};

uint32_t codeOf(int32_t mode, const std::vector<StreamComponent>& components) {
    return Header(mode, 64, 64, components).code;
}

}  // namespace

TEST(FrameHeader, StripGeometry) {
    Header header(1, 640, 480, Sampling::k420);
    ASSERT_EQ(header.code, kDecodeOk);
    EXPECT_EQ(header.context->scaleDiv, 2);
    EXPECT_EQ(header.context->mcusPerRow, 40u);
    EXPECT_EQ(header.context->mcuRows, 30u);
    EXPECT_EQ(header.context->scaledWidth, 320u);
    EXPECT_EQ(header.context->scaledHeight, 240u);
    EXPECT_EQ(header.context->mcuRowHeight, 8);  // 16 before the reduction
    EXPECT_EQ(header.context->mcuRowBytes, 7680u);
    EXPECT_EQ(header.context->samplingKind, 0);
    EXPECT_EQ(header.context->planeWidth[1], 320u);
    EXPECT_EQ(header.context->planeWidth[2], 160u);
    EXPECT_EQ(header.context->planeStart[2] - header.context->planeStart[1], 320 * 16);
    EXPECT_EQ(header.context->planeStart[3] - header.context->planeStart[2], 160 * 8);
}

TEST(FrameHeader, BufferOfEachLayout) {
    EXPECT_EQ(Header(1, 320, 240, Sampling::k444).context->mcuRowBytes, 24u * 320);
    EXPECT_EQ(Header(1, 320, 240, Sampling::k422).context->mcuRowBytes, 16u * 320);
    EXPECT_EQ(Header(1, 320, 240, Sampling::k420).context->mcuRowBytes, 24u * 320);
    EXPECT_EQ(Header(1, 320, 240, Sampling::k444).context->samplingKind, 2);
    EXPECT_EQ(Header(1, 320, 240, Sampling::k422).context->samplingKind, 1);
    EXPECT_EQ(Header(1, 320, 240, Sampling::k420).context->mcuRowHeight, 16);
}

TEST(FrameHeader, Reduction) {
    struct Case {
        int32_t mode;
        uint32_t width, height;
        int32_t scaleDiv;
    };
    for (const Case& item :
         {Case{3, 1280, 1024, 8}, Case{1, 176, 144, 1}, Case{1, 320, 240, 1}, Case{1, 639, 480, 1},
          Case{1, 640, 479, 1}, Case{1, 640, 480, 2}, Case{1, 1279, 960, 2}, Case{1, 1280, 960, 4},
          Case{1, 2559, 1920, 4}, Case{1, 2560, 1920, 8}, Case{9, 1280, 1024, 4}, Case{6, 640, 480, 8}}) {
        Header header(item.mode, item.width, item.height, Sampling::k444);
        EXPECT_EQ(header.code, kDecodeOk);
        EXPECT_EQ(header.context->scaleDiv, item.scaleDiv) << item.width << " x " << item.height;
    }
}

TEST(FrameHeader, QuotientsHaveEightBits) {
    // 20 x 256 columns: the quotient 256 is taken for 0.
    EXPECT_EQ(Header(6, 5120, 3840, Sampling::k444).context->scaleDiv, 1);
    EXPECT_EQ(Header(6, 5120, 1920, Sampling::k444).context->scaleDiv, 1);
    EXPECT_EQ(Header(6, 2560, 3840, Sampling::k444).context->scaleDiv, 1);
    EXPECT_EQ(Header(6, 5100, 3825, Sampling::k444).context->scaleDiv, 8);
    EXPECT_EQ(Header(6, 5160, 3870, Sampling::k444).context->scaleDiv, 2);  // 258
}

TEST(FrameHeader, OddSizesGetAnMcuTooMany) {
    Header strip(1, 650, 241, Sampling::k420);
    EXPECT_EQ(strip.context->mcusPerRow, 42u);
    EXPECT_EQ(strip.context->mcuRows, 17u);
    Header planar(7, 650, 241, Sampling::k420);
    EXPECT_EQ(planar.context->mcusPerRow, 41u);
    EXPECT_EQ(planar.context->mcuRows, 16u);
    EXPECT_EQ(Header(1, 648, 240, Sampling::k444).context->mcusPerRow, 81u);
}

TEST(FrameHeader, PlanarGeometry) {
    Header header(14, 320, 240, Sampling::k420);
    ASSERT_EQ(header.code, kDecodeOk);
    EXPECT_EQ(header.context->scaledWidth, 320u);
    EXPECT_EQ(header.context->mcuRowBytes, 320u * 240 * 3 / 2);
    EXPECT_EQ(header.context->planeStart[2] - header.context->planeStart[1], 320 * 240);
    EXPECT_EQ(header.context->planeStart[3] - header.context->planeStart[2], 160 * 120);
    EXPECT_EQ(Header(7, 320, 240, Sampling::k444).context->mcuRowBytes, 320u * 240 * 3);
    EXPECT_EQ(Header(7, 320, 240, Sampling::k422).context->mcuRowBytes, 320u * 240 * 2);
    Header grey(7, 320, 240, {{7, 0x11, 0}});
    EXPECT_EQ(grey.code, kDecodeOk);
    EXPECT_EQ(grey.context->samplingKind, 4);
    EXPECT_EQ(grey.context->mcuRowBytes, 320u * 240);
}

TEST(FrameHeader, GreyIsForPlanarModesOnly) {
    EXPECT_EQ(codeOf(1, {{1, 0x11, 0}}), kDecodeUnsupported);
    EXPECT_EQ(codeOf(8, {{1, 0x11, 0}}), kDecodeUnsupported);
    EXPECT_EQ(codeOf(7, {{1, 0x11, 0}}), kDecodeOk);
    EXPECT_EQ(codeOf(14, {{1, 0x22, 0}}), kDecodeOk);
}

TEST(FrameHeader, ComponentCounts) {
    for (int32_t mode : {1, 7, 8}) {
        EXPECT_EQ(codeOf(mode, {}), kDecodeUnsupported);
        EXPECT_EQ(codeOf(mode, {{1, 0x21, 0}, {2, 0x11, 0}}), kDecodeUnsupported);
        EXPECT_EQ(codeOf(mode, {{1, 0x11, 0}, {2, 0x11, 0}, {3, 0x11, 0}, {4, 0x11, 0}}), kDecodeUnsupported);
    }
}

TEST(FrameHeader, SamplingsWhoseSumFitsOnly) {
    for (int32_t mode : {1, 7, 8}) {
        EXPECT_EQ(codeOf(mode, {{1, 0x12, 0}, {2, 0x11, 1}, {3, 0x11, 1}}), kDecodeUnsupported);
        EXPECT_EQ(codeOf(mode, {{1, 0x41, 0}, {2, 0x11, 1}, {3, 0x11, 1}}), kDecodeUnsupported);
        EXPECT_EQ(codeOf(mode, {{1, 0x14, 0}, {2, 0x11, 1}, {3, 0x11, 1}}), kDecodeUnsupported);
        EXPECT_EQ(codeOf(mode, {{1, 0x11, 0}, {2, 0x21, 1}, {3, 0x11, 1}}), kDecodeUnsupported);
        EXPECT_EQ(codeOf(mode, {{1, 0x21, 0}, {2, 0x21, 1}, {3, 0x21, 1}}), kDecodeUnsupported);
        EXPECT_EQ(codeOf(mode, {{1, 0x22, 0}, {2, 0x22, 1}, {3, 0x22, 1}}), kDecodeUnsupported);
        EXPECT_EQ(codeOf(mode, {{1, 0x31, 0}, {2, 0x11, 1}, {3, 0x11, 1}}), kDecodeUnsupported);
    }
}

TEST(FrameHeader, ComponentIds) {
    for (int32_t mode : {1, 7}) {
        for (uint8_t first : {1, 2, 5}) {
            EXPECT_EQ(codeOf(mode, threeComponents(Sampling::k444, first)), kDecodeOk) << int(first);
        }
        for (uint8_t first : {0, 6, 7, 8, 254, 255}) {
            EXPECT_EQ(codeOf(mode, threeComponents(Sampling::k444, first)), kDecodeUnsupported) << int(first);
        }
        // What an earlier frame left in the arrays does not make up for a component that is not there.
        TestContext context;
        runDecode(*context, mode, JpegStream().start().frame(64, 64, Sampling::k444).end().bytes());
        JpegStream twice;
        twice.start().frame(64, 64, {{1, 0x11, 0}, {1, 0x11, 0}, {2, 0x11, 0}}).end();
        EXPECT_EQ(runDecode(*context, mode, twice.bytes()).code, kDecodeUnsupported);
        EXPECT_EQ(codeOf(mode, {{1, 0x11, 0}, {3, 0x11, 0}, {4, 0x11, 0}}), kDecodeUnsupported);
        EXPECT_EQ(codeOf(mode, {{3, 0x11, 0}, {2, 0x11, 0}, {1, 0x11, 0}}), kDecodeUnsupported);
    }
}

TEST(FrameHeader, ZeroFactorsAndSizesAndHighSelectors) {
    for (int32_t mode : {1, 7}) {
        for (uint8_t sampling : {0x00, 0x01, 0x10}) {
            EXPECT_EQ(codeOf(mode, {{1, sampling, 0}, {2, 0x11, 1}, {3, 0x11, 1}}), kDecodeUnsupported);
            EXPECT_EQ(codeOf(mode, {{1, 0x11, 0}, {2, 0x11, 1}, {3, sampling, 1}}), kDecodeUnsupported);
            EXPECT_EQ(codeOf(mode, {{1, sampling, 0}}), kDecodeUnsupported);
        }
        EXPECT_EQ(codeOf(mode, {{1, 0x11, 3}, {2, 0x11, 3}, {3, 0x11, 3}}), kDecodeOk);
        EXPECT_EQ(codeOf(mode, {{1, 0x11, 0}, {2, 0x11, 1}, {3, 0x11, 4}}), kDecodeUnsupported);
        EXPECT_EQ(Header(mode, 0, 8, Sampling::k444).code, kDecodeUnsupported);
        EXPECT_EQ(Header(mode, 8, 0, Sampling::k444).code, kDecodeUnsupported);
    }
}

TEST(FrameHeader, OtherPrecisionsSaySoOnce) {
    for (int32_t mode : {1, 7}) {
        for (uint8_t precision : {0, 12, 16}) {
            Bytes content = {precision, 0, 8, 0, 8, 3};
            for (const StreamComponent& item : threeComponents(Sampling::k444)) {
                content.insert(content.end(), {item.id, item.sampling, item.quantTable});
            }
            testing::internal::CaptureStdout();
            const uint32_t code =
                runDecode(mode, JpegStream().start().segment(0xC0, content).end().bytes()).code;
            EXPECT_EQ(testing::internal::GetCapturedStdout(),
                      "This decoder doesn't support 12 bit or 16 bit data\n");
            EXPECT_EQ(code, kDecodeBadPrecision);
        }
    }
}

TEST(FrameHeader, GiantPlanarImagesAreRefusedUnallocated) {
    for (Sampling sampling : {Sampling::k444, Sampling::k422, Sampling::k420}) {
        Header header(7, 65535, 65535, sampling);
        EXPECT_EQ(header.code, kDecodeNoMemory);
        EXPECT_EQ(header.context->mcuRowCapacity, 0u);
        // One MCU row of the widest picture is no burden.
        EXPECT_EQ(Header(1, 65535, 65535, sampling).code, kDecodeOk);
    }
    EXPECT_EQ(Header(7, 65535, 65535, {{1, 0xFF, 1}}).code, kDecodeNoMemory);
}

TEST(FrameHeader, TheBufferIsKeptAndGrows) {
    TestContext context;
    const auto run = [&](uint32_t width) {
        runDecode(*context, 1, JpegStream().start().frame(width, 240, Sampling::k444).end().bytes());
        return context->mcuRowBuffer;
    };
    const uint8_t* first = run(320);
    EXPECT_EQ(run(160), first);
    EXPECT_EQ(run(320), first);
    EXPECT_EQ(context->mcuRowCapacity, 24u * 320);
    run(328);
    EXPECT_EQ(context->mcuRowCapacity, 24u * 328);
}

TEST(FrameHeader, AStuffedZeroIsLost) {
    // The height's bytes 0xFF 0x00 0x10 are read as 0xFF10, and everything after them is a byte further on.
    JpegStream stream;
    stream.start().marker(0xC0).raw({0, 17, 8, 0xFF, 0x00, 0x10, 0x00, 0x20, 3});
    stream.raw({1, 0x11, 0, 2, 0x11, 1, 3, 0x11, 1}).end();
    TestContext context;
    EXPECT_EQ(runDecode(*context, 1, stream.bytes()).code, kDecodeOk);
    EXPECT_EQ(context->imageHeight, 0xFF10u);
    EXPECT_EQ(context->imageWidth, 0x0020u);
}
