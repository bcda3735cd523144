// Instant review of files that the card did not write as it should: shown when they are pictures, else
// nothing new.
#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/camera_process.h"
#include "desktop/pictures.h"
#include "desktop/screen_picture.h"
#include "support/picture_encoder.h"

namespace {

constexpr UINT kShutter = 1601;
constexpr size_t kMostBytes = 768008;       // longer files are not looked at
constexpr RECT kArea = {45, 33, 195, 125};  // of the picture under review, clear of the readouts below

std::string Text(const Bytes& bytes) {
    return {bytes.begin(), bytes.end()};
}

// A picture all in a colour that the scene does not have, and how much of the review shows it.
Bytes Magenta(uint32_t width, uint32_t height) {
    TestPicture picture = {width, height, {}};
    const uint8_t samples[] = {105, 212, 235};
    for (size_t plane = 0; plane < 3; ++plane) picture.planes[plane].assign(width * height, samples[plane]);
    return encodePicture(picture, {});
}

int MagentaPercent(const CameraProcess& camera) {
    const ScreenPicture view(camera.LiveView());
    int found = 0;
    for (int y = kArea.top; y < kArea.bottom; ++y)
        for (int x = kArea.left; x < kArea.right; ++x) {
            const COLORREF color = view.At(x, y);
            found += GetRValue(color) > 180 && GetGValue(color) < 80 && GetBValue(color) > 180;
        }
    return found * 100 / ((kArea.right - kArea.left) * (kArea.bottom - kArea.top));
}

Bytes Padded(Bytes bytes, size_t size) {
    bytes.resize(size);
    return bytes;
}

Bytes Cut(Bytes bytes, size_t size) {
    return Padded(std::move(bytes), std::min(size, bytes.size()));
}

// The same stream called progressive.
Bytes Progressive(Bytes bytes) {
    const uint8_t frame[] = {0xFF, 0xC0};
    const auto place = std::search(bytes.begin(), bytes.end(), std::begin(frame), std::end(frame));
    EXPECT_NE(place, bytes.end());
    if (place != bytes.end()) place[1] = 0xC2;
    return bytes;
}

// A frame of a size that its data do not have.
Bytes Claiming(uint32_t width, uint32_t height) {
    return JpegStream::untilScan(width, height, Sampling::k444).raw(Bytes(200, 0x55)).end().bytes();
}

struct ReviewFile {
    const char* name;
    Bytes (*make)();
    bool shown;
};

const ReviewFile kFiles[] = {
    {"whole", [] { return Magenta(320, 240); }, true},
    {"ofTheLargestSize", [] { return Padded(Magenta(320, 240), kMostBytes); }, true},
    {"oneByteTooLong", [] { return Padded(Magenta(320, 240), kMostBytes + 1); }, false},
    {"muchTooLong", [] { return Padded(Magenta(320, 240), 3000000); }, false},
    {"empty", [] { return Bytes(); }, false},
    {"cutInItsHeader", [] { return Cut(Magenta(320, 240), 30); }, false},
    {"cutBeforeItsScan", [] { return Cut(Magenta(320, 240), 170); }, false},
    {"cutInItsScan", [] { return Cut(Magenta(320, 240), Magenta(320, 240).size() * 3 / 4); }, false},
    {"progressive", [] { return Progressive(Magenta(320, 240)); }, false},
    {"text", [] { return Bytes(5000, 'x'); }, false},
    {"allMarkers", [] { return Bytes(kMostBytes, 0xFF); }, false},
    {"claimingToBeHuge", [] { return Claiming(65535, 65535); }, false},
    {"claimingToBeEmpty", [] { return Claiming(0, 0); }, false},
    {"larger", [] { return Magenta(1280, 1024); }, true},
};

// The card refuses the still, so that the review finds what lies under its name already.
class ReviewOf : public testing::TestWithParam<ReviewFile> {
  protected:
    void SetUp() override {
        ASSERT_NE(camera.Screen(), nullptr);
        ASSERT_TRUE(camera.WaitForFrames(3));
        camera.SetCard("refuse-still");
    }
    size_t Stills() const { return camera.CountCalls("control 0x80000007"); }
    // Frames go on under the review, and the shutter rests.
    void ExpectReviewOf(bool shown) {
        camera.Command(kShutter);
        ASSERT_TRUE(WaitFor([&] { return Stills() == 1; }));
        camera.Command(kShutter);
        ASSERT_TRUE(camera.WaitForFrames(5));
        EXPECT_EQ(Stills(), 1u);
        if (shown)
            EXPECT_GT(MagentaPercent(camera), 95);
        else
            EXPECT_LT(MagentaPercent(camera), 5);
    }

    CameraProcess camera{
        {{},
         {{L"aviresolution", 0}, {L"selftime", 0}, {L"instant review", 1}, {L"recordwithaudio", 0}},
         "",
         {}}};
};

TEST_P(ReviewOf, AFileThatIs) {
    const std::string bytes = Text(GetParam().make());
    WriteBytes(PicturePath(camera, 1), bytes);
    ExpectReviewOf(GetParam().shown);
    EXPECT_TRUE(ReadBytes(PicturePath(camera, 1)) == bytes);
    EXPECT_TRUE(camera.ExitsInOrder());
}

std::string NameOf(const testing::TestParamInfo<ReviewFile>& run) {
    return run.param.name;
}

INSTANTIATE_TEST_SUITE_P(Kinds, ReviewOf, testing::ValuesIn(kFiles), NameOf);

using ReviewOfNothing = ReviewOf;
TEST_P(ReviewOfNothing, IsEmptyAndEnds) {
    ExpectReviewOf(false);
    EXPECT_TRUE(WaitFor([&] {
        camera.Command(kShutter);
        return Stills() > 1;
    }));
    EXPECT_TRUE(camera.ExitsInOrder());
}

INSTANTIATE_TEST_SUITE_P(Missing, ReviewOfNothing, testing::Values(ReviewFile{"file", nullptr, false}),
                         NameOf);

}  // namespace
