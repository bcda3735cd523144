// Whole pictures through all modes, against the samples that they were made from.
#include <gtest/gtest.h>

#include <cmath>

#include "support/decode_run.h"
#include "support/picture_encoder.h"

namespace {

constexpr Sampling kSamplings[] = {Sampling::k444, Sampling::k422, Sampling::k420};

// Luma of a delivered pixel, roughly.
double lumaAt(const Bytes& picture, int32_t mode, uint32_t x, uint32_t y) {
    const TargetPicture target = targetPicture(mode);
    const uint8_t* at = picture.data() + y * target.rowBytes + x * target.bytesPerPixel;
    if (target.planar) return at[0];
    if (target.bytesPerPixel == 3) return 0.299 * at[2] + 0.587 * at[1] + 0.114 * at[0];
    const int word = at[0] | at[1] << 8;
    return 0.299 * (word >> 11 << 3) + 0.587 * (word >> 5 << 2 & 0xFC) + 0.114 * (word << 3 & 0xF8);
}

// A horizontal and vertical ramp without colour: any scaling must follow it.
TestPicture ramp(uint32_t width, uint32_t height) {
    TestPicture picture{
        width, height, {Bytes(width * height), Bytes(width * height, 128), Bytes(width * height, 128)}};
    for (uint32_t i = 0; i < width * height; ++i) {
        picture.planes[0][i] = static_cast<uint8_t>(20 + i % width * 120 / width + i / width * 80 / height);
    }
    return picture;
}

}  // namespace

TEST(WholePictures, EveryModeFollowsARamp) {
    struct Size {
        uint32_t width, height;
    };
    for (const Size& size : {Size{320, 240}, Size{640, 480}, Size{1280, 960}, Size{160, 128}}) {
        for (Sampling sampling : kSamplings) {
            EncodeOptions options;
            options.sampling = sampling;
            const Bytes stream = encodePicture(ramp(size.width, size.height), options);
            for (int32_t mode = 1; mode <= 14; ++mode) {
                const TargetPicture target = targetPicture(mode);
                const Decoded decoded = runDecode(mode, stream);
                if ((mode == 4 || mode == 11) && decoded.code == kDecodeUnsupported) continue;
                ASSERT_EQ(decoded.code, kDecodeOk) << mode << " " << size.width;
                ASSERT_EQ(decoded.picture.size(), target.totalBytes);
                if (size.height == 128) continue;  // has margins
                for (uint32_t y = 0; y < target.height; y += 7) {
                    for (uint32_t x = 0; x < target.width; x += 7) {
                        const double expected = 20 + 120.0 * x / target.width + 80.0 * y / target.height;
                        // A pixel of the smallest targets spans 6 levels across and 5 down; RGB565 cuts
                        // off up to 7 levels.
                        const double slack =
                            (mode < 7 ? 10 : 5) + 120.0 / target.width + 80.0 / target.height;
                        ASSERT_NEAR(lumaAt(decoded.picture, mode, x, y), expected, slack)
                            << mode << " " << size.width << ": " << x << ", " << y;
                    }
                }
            }
        }
    }
}

TEST(WholePictures, ExactModesOfEveryReduction) {
    // Source sizes that become exactly the target at reduction 1, 2, 4 and 8.
    struct Case {
        int32_t mode;
        uint32_t width, height;
        int32_t scaleDiv;
    };
    for (const Case& item :
         {Case{8, 320, 240, 1}, Case{10, 320, 240, 2}, Case{11, 160, 120, 2}, Case{12, 160, 120, 4},
          Case{13, 160, 120, 8}, Case{9, 480, 360, 2}, Case{8, 1280, 960, 4}, Case{10, 1280, 960, 8}}) {
        EncodeOptions options;
        const TestPicture source = ramp(item.width, item.height);
        TestContext context;
        const Decoded decoded = runDecode(*context, item.mode, encodePicture(source, options));
        ASSERT_EQ(decoded.code, kDecodeOk);
        EXPECT_EQ(context->scaleDiv, item.scaleDiv) << item.mode;
        const TargetPicture target = targetPicture(item.mode);
        const auto div = static_cast<uint32_t>(item.scaleDiv);
        for (uint32_t y = 0; y < target.height; ++y) {
            for (uint32_t x = 0; x < target.width; ++x) {
                double sum = 0;
                for (uint32_t i = 0; i < div * div; ++i) {
                    sum += source.planes[0][(y * div + i / div) * item.width + x * div + i % div];
                }
                ASSERT_NEAR(lumaAt(decoded.picture, item.mode, x, y), sum / (div * div), 4)
                    << item.mode << ": " << x << ", " << y;
            }
        }
    }
}

TEST(WholePictures, ThreeQuarterDeliversTwelveRowsPerMcuRow) {
    EncodeOptions options;
    options.sampling = Sampling::k420;
    Bytes stream = encodePicture(ramp(320, 240), options);
    stream.resize(stream.size() / 2);
    const Decoded decoded = runDecode(2, stream);
    EXPECT_EQ(decoded.code, kDecodeInputEnded);
    EXPECT_GT(decoded.picture.size(), 0u);
    EXPECT_EQ(decoded.picture.size() % (12 * 240 * 2), 0u);
}

TEST(WholePictures, ThreeQuarterGroupsBeginAnewWithEachScan) {
    // At reduction 4 the cut comes after two rows, in the middle of a group.
    EncodeOptions options;
    const TestPicture large = ramp(1280, 960);
    const Bytes good = encodePicture(large, options);
    options.restartInterval = 160;
    Bytes cut = encodePicture(large, options);
    cut.resize(cut.size() / 120 + 600);
    TestContext context;
    const Decoded first = runDecode(*context, 9, cut);
    EXPECT_EQ(first.code, kDecodeInputEnded);
    ASSERT_EQ(first.picture.size(), 2u * 720);
    EXPECT_EQ(runDecode(*context, 9, good).picture, runDecode(9, good).picture);
}

TEST(WholePictures, OddSizesRunOutOfData) {
    for (Sampling sampling : kSamplings) {
        EncodeOptions options;
        options.sampling = sampling;
        const Bytes stream = encodePicture(makePicture(330, 250, 1), options);
        const uint32_t code = runDecode(8, stream).code;
        EXPECT_TRUE(code == kDecodeBadDcCode || code == kDecodeBadAcCode || code == kDecodeInputEnded)
            << code;
        EXPECT_EQ(runDecode(14, stream).code, kDecodeOk) << "planar modes count as the file does";
    }
}

TEST(WholePictures, TheReviewOfTheLargestStill) {
    // 1280 x 1024 in mode 9: black, picture, black in every row.
    EncodeOptions options;
    options.sampling = Sampling::k422;
    const Decoded decoded = runDecode(9, encodePicture(ramp(1280, 1024), options));
    ASSERT_EQ(decoded.code, kDecodeOk);
    for (uint32_t y = 0; y < 180; ++y) {
        for (uint32_t x = 0; x < 240; ++x) {
            ASSERT_EQ(lumaAt(decoded.picture, 9, x, y) < 1, x < 7 || x >= 232) << x << ", " << y;
        }
    }
}

TEST(WholePictures, RestartIntervalsChangeNothing) {
    const TestPicture picture = makePicture(320, 240, 5);
    for (Sampling sampling : kSamplings) {
        EncodeOptions options;
        options.sampling = sampling;
        const Decoded plain = runDecode(9, encodePicture(picture, options));
        for (uint16_t interval : {1, 7, 20, 40, 300, 1200, 5000}) {
            options.restartInterval = interval;
            const Decoded decoded = runDecode(9, encodePicture(picture, options));
            EXPECT_EQ(decoded.code, kDecodeOk);
            EXPECT_EQ(decoded.picture, plain.picture) << interval;
        }
    }
}

TEST(WholePictures, ModesOfOneSizeShowTheSame) {
    EncodeOptions options;
    const Bytes stream = encodePicture(makePicture(320, 240, 6), options);
    for (int32_t mode : {1, 2, 3, 5, 6}) {
        const Bytes words = runDecode(mode, stream).picture;
        const Bytes triples = runDecode(mode + 7, stream).picture;
        ASSERT_EQ(words.size() / 2, triples.size() / 3);
        for (size_t i = 0; i < words.size() / 2; ++i) {
            const uint8_t* bgr = &triples[3 * i];
            ASSERT_EQ(words[2 * i] | words[2 * i + 1] << 8,
                      (bgr[2] >> 3) << 11 | (bgr[1] >> 2) << 5 | bgr[0] >> 3);
        }
    }
    EXPECT_EQ(runDecode(7, stream).picture, runDecode(14, stream).picture);
}
