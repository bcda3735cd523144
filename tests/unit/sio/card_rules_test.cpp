#include <gtest/gtest.h>

#include <cstring>

#include "device/control_codes.h"
#include "handheld/sio/card/control_log.h"
#include "handheld/sio/card/faults.h"
#include "handheld/sio/card/fit.h"
#include "handheld/sio/card/image_effects.h"
#include "handheld/sio/card/modes.h"
#include "handheld/sio/card/still_request.h"
#include "handheld/sio/scene/scene.h"

using namespace sio;

namespace {

using Words = std::vector<std::string>;

struct Mean {
    double r = 0, g = 0, b = 0;
    double luma() const { return 0.299 * r + 0.587 * g + 0.114 * b; }
};

Mean meanOf(const Picture& picture) {
    Mean mean;
    for (const Rgb& p : picture.pixels) mean.r += p.r, mean.g += p.g, mean.b += p.b;
    const double count = static_cast<double>(picture.pixels.size());
    return {mean.r / count, mean.g / count, mean.b / count};
}

Picture processed(const ImageParameters& parameters) {
    CScene scene;
    Picture picture;
    scene.draw(kDayMilliseconds / 2, {160, 120, 0}, picture);
    applyImageParameters(parameters, picture);
    return picture;
}

Picture halves(Rgb left, Rgb right) {
    Picture picture;
    picture.resize(400, 200);
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 400; ++x) picture.row(y)[x] = x < 200 ? left : right;
    }
    return picture;
}

ControlCall callWith(uint32_t code, const void* in, uint32_t size) {
    return {code, static_cast<const uint8_t*>(in), size, nullptr, 0};
}

}  // namespace

TEST(Modes, PreviewModesAgreeWithTheProgramsHeaders) {
    struct Expected {
        uint32_t code;
        int width, zoom, across, down;
    };
    for (const Expected& e : {Expected{4, 320, 0, 1, 1},
                              {9, 320, 1, 2, 2},
                              {17, 320, 2, 2, 2},
                              {6, 160, 0, 1, 1},
                              {20, 160, 1, 1, 1},
                              {21, 160, 2, 1, 1}}) {
        const PreviewMode* mode = findPreviewMode(e.code);
        ASSERT_NE(nullptr, mode) << e.code;
        EXPECT_EQ(e.width, mode->view.width);
        EXPECT_EQ(e.width * 3 / 4, mode->view.height);
        EXPECT_EQ(e.zoom, mode->view.zoom);
        EXPECT_EQ(e.across, mode->sampling.across);
        EXPECT_EQ(e.down, mode->sampling.down);
    }
    for (uint32_t code : {0u, 3u, 5u, 8u, 22u, 0xFFFFFFFFu})
        EXPECT_EQ(nullptr, findPreviewMode(code)) << code;
}

TEST(Modes, StillModes) {
    EXPECT_EQ((View{1280, 1024, 0}), findStillMode(0)->view);
    EXPECT_EQ((View{1280, 960, 0}), findStillMode(1)->view);
    EXPECT_EQ((View{640, 480, 0}), findStillMode(2)->view);
    EXPECT_EQ((View{320, 240, 0}), findStillMode(4)->view);
    EXPECT_EQ((View{640, 480, 1}), findStillMode(7)->view);
    EXPECT_EQ((View{320, 240, 1}), findStillMode(8)->view);
    EXPECT_EQ((View{320, 240, 2}), findStillMode(17)->view);
    EXPECT_EQ(nullptr, findStillMode(3));
}

TEST(ImageEffects, WhiteBalancesDiffer) {
    const Mean automatic = meanOf(processed({0, 0, 0, 0}));
    const Mean sunny = meanOf(processed({1, 0, 0, 0}));
    const Mean fluorescent = meanOf(processed({2, 0, 0, 0}));
    const Mean tungsten = meanOf(processed({3, 0, 0, 0}));
    const Mean off = meanOf(processed({4, 0, 0, 0}));
    EXPECT_GT(sunny.r - sunny.b, automatic.r - automatic.b + 8);
    EXPECT_LT(fluorescent.g - fluorescent.b, automatic.g - automatic.b - 8);
    EXPECT_LT(tungsten.r - tungsten.b, automatic.r - automatic.b - 25);
    EXPECT_GT(off.g - off.b, automatic.g - automatic.b + 15);
}

TEST(ImageEffects, ColourModes) {
    for (const Rgb& p : processed({0, 1, 0, 0}).pixels) ASSERT_TRUE(p.r == p.g && p.g == p.b);
    const Mean sepia = meanOf(processed({0, 2, 0, 0}));
    EXPECT_GT(sepia.r, sepia.g + 8);
    EXPECT_GT(sepia.g, sepia.b + 15);
}

TEST(ImageEffects, MeteringChangesTheSceneVisibly) {
    EXPECT_GT(meanOf(processed({0, 0, 0, 0})).luma() - meanOf(processed({0, 0, 0, 1})).luma(), 4);
}

TEST(ImageEffects, CentreMeteringFollowsTheMiddle) {
    Picture whole;
    whole.resize(300, 300);
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 300; ++x) {
            const bool middle = x >= 100 && x < 200 && y >= 100 && y < 200;
            const uint8_t level = middle ? 40 : 220;
            whole.row(y)[x] = {level, level, level};
        }
    }
    Picture centre = whole;
    applyImageParameters({0, 0, 0, 0}, whole);
    applyImageParameters({0, 0, 0, 1}, centre);
    // Metered on its dark middle the picture gets brighter, there and around.
    EXPECT_GT(centre.at(150, 150).r, whole.at(150, 150).r + 20);
    EXPECT_GT(centre.at(5, 5).r, whole.at(5, 5).r);
}

TEST(ImageEffects, ValuesOutOfRangeCountAsZero) {
    const Picture plain = processed({0, 0, 0, 0});
    EXPECT_EQ(plain.pixels, processed({77, 0, 0, 0}).pixels);
    EXPECT_EQ(plain.pixels, processed({0, 3, 0, 0}).pixels);
    EXPECT_EQ(plain.pixels, processed({0, 0, 0xFFFFFFFF, 0}).pixels);
    EXPECT_EQ(plain.pixels, processed({0, 0, 0, 2}).pixels);
}

TEST(Fit, CutsTheMiddleToTheViewsShape) {
    const Picture wide = halves({200, 0, 0}, {0, 0, 200});
    Picture out;
    fitToView(wide, {80, 60, 0}, out);
    ASSERT_EQ(80, out.width);
    ASSERT_EQ(60, out.height);
    EXPECT_EQ((Rgb{200, 0, 0}), out.at(5, 30));
    EXPECT_EQ((Rgb{0, 0, 200}), out.at(75, 30));
}

TEST(Fit, ZoomCutsASmallerMiddle) {
    Picture target;
    target.resize(160, 120);
    for (int y = 0; y < 120; ++y) {
        for (int x = 0; x < 160; ++x) {
            const bool middle = x >= 60 && x < 100 && y >= 45 && y < 75;
            target.row(y)[x] = middle ? Rgb{0, 200, 0} : Rgb{200, 0, 0};
        }
    }
    Picture out;
    fitToView(target, {80, 60, 2}, out);
    EXPECT_EQ((Rgb{0, 200, 0}), out.at(2, 2));
    EXPECT_EQ((Rgb{0, 200, 0}), out.at(77, 57));
    fitToView(target, {80, 60, 1}, out);
    EXPECT_EQ((Rgb{200, 0, 0}), out.at(2, 2));
    EXPECT_EQ((Rgb{0, 200, 0}), out.at(40, 30));
}

TEST(Fit, OneByOnePixelFillsTheView) {
    Picture dot;
    dot.resize(1, 1);
    dot.pixels[0] = {10, 20, 30};
    Picture out;
    fitToView(dot, {160, 120, 2}, out);
    for (const Rgb& p : out.pixels) ASSERT_EQ((Rgb{10, 20, 30}), p);
}

TEST(ControlFile, EveryWord) {
    EXPECT_EQ(0u, parseControlFile("").faults);
    EXPECT_EQ(kUnplugged, parseControlFile("unplugged\n").faults);
    EXPECT_EQ(kSilent, parseControlFile("silent").faults);
    EXPECT_EQ(kRefuseStill, parseControlFile("refuse-still").faults);
    EXPECT_EQ(kGarbage | kShort | kLong, parseControlFile("garbage\r\nshort\r\nlong\r\n").faults);
}

TEST(ControlFile, ToleratesTheWaysOfEditors) {
    EXPECT_EQ(kSilent, parseControlFile("  Silent \t\n\n").faults);
    EXPECT_EQ(kSilent, parseControlFile("\xEF\xBB\xBFsilent\n").faults);
    EXPECT_EQ(kSilent, parseControlFile(std::string_view("\xFF\xFEs\0i\0l\0e\0n\0t\0", 14)).faults);
}

TEST(ControlFile, UnknownWordsAreReported) {
    const ControlFile file = parseControlFile("silent unplug\nlong");
    EXPECT_EQ(kSilent | kLong, file.faults);
    EXPECT_EQ(Words{"unplug"}, file.unknownWords);
}

TEST(ControlFile, ChangesAreEvents) {
    EXPECT_EQ(Words{}, faultEvents(kSilent, kSilent));
    EXPECT_EQ(Words{"card unplugged"}, faultEvents(0, kUnplugged));
    EXPECT_EQ((Words{"card inserted", "card sends garbage"}), faultEvents(kUnplugged, kGarbage));
    EXPECT_EQ((Words{"card refuses stills"}), faultEvents(kLong, kLong | kRefuseStill));
    EXPECT_EQ((Words{"card accepts stills"}), faultEvents(kRefuseStill, 0));
}

TEST(ControlLog, OpenAndClose) {
    EXPECT_EQ("open access 0xC0000000 share 3", openLine(0xC0000000, 3, true));
    EXPECT_EQ("open access 0xC0000000 share 0 failed", openLine(0xC0000000, 0, false));
    EXPECT_EQ("close", closeLine(true));
    EXPECT_EQ("close failed", closeLine(false));
}

TEST(ControlLog, ControlCalls) {
    const uint32_t window = 0, feedback = 0;
    EXPECT_EQ("control 0x80000013 in 4 out 0",
              controlLine(callWith(IOCTL_CAMERA_READ_FRAME, &feedback, 4), true));
    EXPECT_EQ("control 0x8000000F in 17 out 0 preview mode 17",
              controlLine(callWith(IOCTL_CAMERA_START_PREVIEW, &window, 17), true));
    EXPECT_EQ("control 0x8000000F in 5 out 0 failed preview mode 5",
              controlLine(callWith(IOCTL_CAMERA_START_PREVIEW, &window, 5), false));
    const ImageParameters parameters{77, 1, 2, 0};
    EXPECT_EQ("control 0x8000001B in 16 out 0 params awb 77 color 1 quality 2 metering 0",
              controlLine(callWith(IOCTL_CAMERA_SET_IMAGE_PARAMS, &parameters, 16), true));
    EXPECT_EQ("control 0x8000001B in 8 out 0 failed",
              controlLine(callWith(IOCTL_CAMERA_SET_IMAGE_PARAMS, &parameters, 8), false));
    EXPECT_EQ("control 0x12345678 in 0 out 0 failed", controlLine(callWith(0x12345678, nullptr, 0), false));
}

TEST(ControlLog, StillRequest) {
    StillRequest request{};
    request.mode = 7;
    request.quality = 2;
    request.soundModule = 0x400000;
    const std::u16string path = u"\\My Documents\\Gr\u00FC\u00DFe \U0001F600\n.jpg";
    std::memcpy(reinterpret_cast<char*>(&request) + offsetof(StillRequest, path), path.data(),
                path.size() * 2);
    EXPECT_EQ(
        "control 0x80000007 in 220 out 0 still mode 7 quality 2 sound 1 path "
        "\\My Documents\\Gr\xC3\xBC\xC3\x9F"
        "e \xF0\x9F\x98\x80?.jpg",
        controlLine(callWith(IOCTL_CAMERA_CAPTURE_STILL, &request, sizeof request), true));
    EXPECT_EQ("control 0x80000007 in 219 out 0 failed",
              controlLine(callWith(IOCTL_CAMERA_CAPTURE_STILL, &request, 219), false));
}

TEST(StillRequest, PathMustEndWithinItsRoom) {
    // One byte off, as a record on a byte stream may be.
    alignas(4) uint8_t bytes[sizeof(StillRequest) + 1];
    std::memset(bytes, 'a', sizeof bytes);
    StillRequest request;
    ASSERT_TRUE(readStillRequest(bytes + 1, sizeof request, request));
    EXPECT_FALSE(hasUsablePath(request));
    EXPECT_EQ(kStillPathCharacters, stillPath(request).size());
    const size_t last = 1 + offsetof(StillRequest, path) + 2 * (kStillPathCharacters - 1);
    bytes[last] = bytes[last + 1] = 0;
    ASSERT_TRUE(readStillRequest(bytes + 1, sizeof request, request));
    EXPECT_TRUE(hasUsablePath(request));
    EXPECT_EQ(100u, stillPath(request).size());
    EXPECT_FALSE(hasUsablePath(StillRequest{}));
    EXPECT_FALSE(readStillRequest(nullptr, 220, request));
}
