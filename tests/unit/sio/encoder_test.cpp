#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "complete_frame.h"
#include "device/control_codes.h"
#include "handheld/sio/card/garbage.h"
#include "handheld/sio/card/modes.h"
#include "handheld/sio/encoder/frame_steps.h"
#include "handheld/sio/encoder/preview_encoder.h"
#include "handheld/sio/encoder/still_encoder.h"
#include "handheld/sio/picture/noise.h"
#include "handheld/sio/scene/scene.h"
#include "reference_decoder.h"

using namespace sio;

namespace {

constexpr uint32_t kNoon = kDayMilliseconds / 2;

Picture sceneFor(const View& view) {
    CScene scene;
    Picture picture;
    scene.draw(kNoon, view, picture);
    return picture;
}

Picture noise(int width, int height) {
    Picture picture;
    picture.resize(width, height);
    for (int i = 0; i < width * height; ++i) {
        const auto level = [&](uint32_t seed) { return static_cast<uint8_t>(hashedUnit(i, 0, seed) * 256); };
        picture.pixels[i] = {level(1), level(2), level(3)};
    }
    return picture;
}

Picture smooth(int width, int height) {
    Picture picture;
    picture.resize(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const float wave = 60 * std::sin(x * 0.05f) * std::cos(y * 0.04f);
            picture.row(y)[x] = {static_cast<uint8_t>(128 + wave),
                                 static_cast<uint8_t>(90 + y * 100 / height),
                                 static_cast<uint8_t>(60 + x * 120 / width)};
        }
    }
    return picture;
}

Picture constant(int width, int height, Rgb colour) {
    Picture picture;
    picture.resize(width, height);
    picture.pixels.assign(picture.pixels.size(), colour);
    return picture;
}

std::vector<uint8_t> encodeFrame(const Picture& picture, Sampling sampling) {
    CPreviewEncoder encoder;
    std::vector<uint8_t> scan;
    encoder.encode(picture, sampling, scan);
    return scan;
}

Picture throughFrame(const Picture& picture, Sampling sampling) {
    return decodeReference(
        completeFrame(encodeFrame(picture, sampling), picture.width, picture.height, sampling));
}

int wordAt(const std::vector<uint8_t>& file, size_t at) {
    return file[at] << 8 | file[at + 1];
}

// Where a marker's segment starts (its length word), 0 when it is not among the headers.
size_t findSegment(const std::vector<uint8_t>& file, int marker) {
    for (size_t at = 2; at + 4 <= file.size(); at += 2 + wordAt(file, at + 2)) {
        if (wordAt(file, at) == marker) return at + 2;
        if (wordAt(file, at) == 0xFFDA) break;
    }
    return 0;
}

}  // namespace

TEST(PreviewEncoder, EveryModeDecodesCloseToItsPicture) {
    for (uint32_t code : {4u, 6u, 9u, 17u, 20u, 21u}) {
        const PreviewMode& mode = *findPreviewMode(code);
        const Picture picture = sceneFor(mode.view);
        EXPECT_GT(psnr(picture, throughFrame(picture, mode.sampling)), 26.5) << "mode " << code;
        const Picture gentle = smooth(mode.view.width, mode.view.height);
        EXPECT_GT(psnr(gentle, throughFrame(gentle, mode.sampling)), 36) << "mode " << code;
    }
}

TEST(PreviewEncoder, KeepsPlainColours) {
    for (const Rgb& colour : {Rgb{0, 0, 0}, Rgb{255, 255, 255}, Rgb{200, 40, 40}, Rgb{30, 60, 200}}) {
        const Picture picture = constant(160, 120, colour);
        EXPECT_GT(psnr(picture, throughFrame(picture, k444)), 40);
        EXPECT_GT(psnr(picture, throughFrame(picture, k420)), 40);
    }
}

TEST(PreviewEncoder, EndsWithTheEndMarkerAndHasNoOther) {
    for (const Picture& picture :
         {sceneFor({320, 240, 0}), noise(320, 240), constant(320, 240, {255, 255, 255})}) {
        const auto scan = encodeFrame(picture, k444);
        ASSERT_GT(scan.size(), 2u);
        EXPECT_EQ(0xFFD9, wordAt(scan, scan.size() - 2));
        for (size_t i = 0; i + 2 < scan.size(); ++i) {
            ASSERT_TRUE(scan[i] != 0xFF || scan[i + 1] == 0) << "at " << i;
        }
    }
}

TEST(PreviewEncoder, HardPictureIsSoftenedUntilItFits) {
    // Single pixels of opposite colours at random: more than a frame can hold.
    Picture picture;
    picture.resize(320, 240);
    for (int i = 0; i < 320 * 240; ++i) {
        picture.pixels[i] = hashedUnit(i, 0, 5) < 0.5f ? Rgb{255, 0, 255} : Rgb{0, 255, 0};
    }
    Planes planes;
    planes.split(picture, k444);
    std::vector<uint8_t> whole;
    ASSERT_FALSE(writeScan(planes, frameSteps(), {kMaxScanBytes}, whole)) << "the picture is too easy";
    const auto scan = encodeFrame(picture, k444);
    EXPECT_LE(scan.size(), kMaxScanBytes);
    // Softened no more than needed: most of the room is used.
    EXPECT_GT(scan.size(), kMaxScanBytes * 9 / 10);
    EXPECT_FALSE(decodeReference(completeFrame(scan, 320, 240, k444)).empty());
}

TEST(PreviewEncoder, NoiseFits) {
    for (Sampling sampling : {k444, k420}) {
        const auto scan = encodeFrame(noise(320, 240), sampling);
        EXPECT_LE(scan.size(), kMaxScanBytes);
        EXPECT_FALSE(decodeReference(completeFrame(scan, 320, 240, sampling)).empty());
    }
}

TEST(PreviewEncoder, OneEncoderServesChangingModes) {
    CPreviewEncoder encoder;
    std::vector<uint8_t> scan;
    encoder.encode(sceneFor({320, 240, 1}), k420, scan);
    encoder.encode(sceneFor({160, 120, 0}), k444, scan);
    EXPECT_EQ(encodeFrame(sceneFor({160, 120, 0}), k444), scan);
}

TEST(ScanWriter, LimitIsExactAndLeavesTheOutputAlone) {
    Planes planes;
    planes.split(sceneFor({160, 120, 0}), k444);
    const StepTables steps = stepsForQuality(75);
    std::vector<uint8_t> scan = {1, 2, 3};
    ASSERT_TRUE(writeScan(planes, steps, {1 << 20}, scan));
    const size_t length = scan.size() - 3;
    std::vector<uint8_t> again = {1, 2, 3};
    EXPECT_TRUE(writeScan(planes, steps, {length}, again));
    EXPECT_EQ(scan, again);
    again = {1, 2, 3};
    EXPECT_FALSE(writeScan(planes, steps, {length - 1}, again));
    EXPECT_EQ((std::vector<uint8_t>{1, 2, 3}), again);
}

TEST(StillEncoder, EveryModeHasItsSizeAndDecodes) {
    const double least[] = {28, 29, 31};
    for (uint32_t code : {0u, 1u, 2u, 4u, 7u, 8u, 17u}) {
        const StillMode& mode = *findStillMode(code);
        const Picture picture = sceneFor(mode.view);
        for (uint32_t quality = 0; quality < 3; ++quality) {
            const size_t budget = size_t{mode.kilobytes} * 1024 << quality;
            const auto file = encodeStill(picture, quality, budget);
            EXPECT_LE(file.size(), budget) << "mode " << code << " quality " << quality;
            EXPECT_GT(psnr(picture, decodeReference(file)), least[quality]) << "mode " << code;
        }
    }
}

TEST(StillEncoder, QualityRaisesSizeAndFidelity) {
    const Picture picture = sceneFor({640, 480, 0});
    size_t size = 0;
    double fidelity = 0;
    for (uint32_t quality = 0; quality < 3; ++quality) {
        const auto file = encodeStill(picture, quality, 1 << 20);
        const double now = psnr(picture, decodeReference(file));
        EXPECT_GT(file.size(), size * 5 / 4);
        EXPECT_GT(now, fidelity);
        size = file.size();
        fidelity = now;
    }
    EXPECT_EQ(encodeStill(picture, 0, 1 << 20), encodeStill(picture, 77, 1 << 20));
}

TEST(StillEncoder, FileHasTheCameraLayout) {
    const auto file = encodeStill(sceneFor({640, 480, 0}), 1, 1 << 20);
    EXPECT_EQ(0xFFD8, wordAt(file, 0));
    EXPECT_EQ(0xFFE0, wordAt(file, 2));
    EXPECT_EQ(0, std::memcmp(&file[6], "JFIF", 5));
    EXPECT_EQ(0xFFD9, wordAt(file, file.size() - 2));
    const size_t frame = findSegment(file, 0xFFC0);
    ASSERT_NE(0u, frame);
    EXPECT_EQ(480, wordAt(file, frame + 3));
    EXPECT_EQ(640, wordAt(file, frame + 5));
    EXPECT_EQ(0x21, file[frame + 9]);
    EXPECT_EQ(0x11, file[frame + 12]);
    EXPECT_NE(0u, findSegment(file, 0xFFC4));
    EXPECT_EQ(0u, findSegment(file, 0xFFDD));
}

TEST(StillEncoder, StepsAreThoseOfTheUsualQualityScale) {
    EXPECT_EQ(8, stepsForQuality(75).luma[0]);
    EXPECT_EQ(16, stepsForQuality(50).luma[0]);
    EXPECT_EQ(2, stepsForQuality(93).luma[0]);
    EXPECT_EQ(50, stepsForQuality(75).chroma[63]);
    EXPECT_EQ(1, stepsForQuality(100).luma[63]);
}

TEST(StillEncoder, HopelessPictureStillGivesAWholeFile) {
    const Picture picture = noise(320, 240);
    const auto file = encodeStill(picture, 0, 100);
    EXPECT_GT(file.size(), 100u);
    EXPECT_FALSE(decodeReference(file).empty());
}

TEST(StillEncoder, OddSizesArePaddedByTheirEdge) {
    const Picture picture = smooth(37, 21);
    EXPECT_GT(psnr(picture, decodeReference(encodeStill(picture, 2, 1 << 20))), 34);
}

TEST(Garbage, IsRefusedByADecoder) {
    const auto scan = garbageScan();
    EXPECT_LT(scan.size(), kMaxScanBytes);
    EXPECT_EQ(0xFFD9, wordAt(scan, scan.size() - 2));
    EXPECT_TRUE(decodeReference(completeFrame(scan, 320, 240, k444)).empty());
}
