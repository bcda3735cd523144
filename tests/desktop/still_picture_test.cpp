// A still shows what the live view showed: colours and part of the scene, compared with a chart before the lens.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "desktop/camera_process.h"
#include "desktop/color_chart.h"
#include "desktop/pictures.h"
#include "desktop/program_bitmap.h"
#include "desktop/screen_picture.h"

namespace {

constexpr UINT kShutter = 1601, kZoomIn = 1605;
constexpr double kLevels = 3;  // by which a patch may differ
constexpr int kBlock = 16;     // pixels of a frame that share their colour's coefficients, at most

// What covers the live picture: icons and count above, readouts below, the mark in the middle.
bool IsCovered(int x, int y) {
    return y < 42 || y >= 140 || (x >= 78 && x < 162 && y >= 68 && y < 112);
}

// A camera before the chart, its pictures in a store of its own.
class ChartCamera {
  public:
    explicit ChartCamera(std::vector<std::pair<std::wstring, DWORD>> settings, DWORD review = 0)
        : m_folder(ChartFolder()), camera({{{L"HANDHELD_CAMERA", L"folder:" + m_folder.wstring()}},
                                           WithCommon(std::move(settings), review),
                                           "",
                                           {}}) {}
    ~ChartCamera() {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    bool IsLive() { return camera.Screen() != nullptr && camera.WaitForFrames(3); }
    bool ZoomTo(int zoom) {
        for (int i = 0; i < zoom; ++i) camera.Command(kZoomIn);
        return camera.WaitForFrames(4 + 4 * static_cast<size_t>(zoom));
    }
    PixelPicture TakePicture() {
        camera.Command(kShutter);
        WaitFor([&] { return ProfileValue(L"jpgno", 1) == 2; });
        return ReadPicture(PicturePath(camera, 1));
    }

  private:
    static std::filesystem::path ChartFolder() {
        const std::filesystem::path folder =
            std::filesystem::temp_directory_path() / ("zel-chart-" + std::to_string(GetCurrentProcessId()));
        MakeChartFolder(folder);
        return folder;
    }
    static std::vector<std::pair<std::wstring, DWORD>> WithCommon(std::vector<std::pair<std::wstring, DWORD>> settings,
                                                                  DWORD review) {
        settings.insert(settings.begin(), {{L"aviresolution", 0}, {L"instant review", review}, {L"recordwithaudio", 0}});
        return settings;
    }

    const std::filesystem::path m_folder;

  public:
    CameraProcess camera;
};

struct Difference {
    int patches = 0;     // compared
    double largest = 0;  // levels
    int patch = -1;      // where that was
};

void Compare(const PatchColor& still, COLORREF live, int patch, Difference& difference) {
    for (const double levels : {still.red - GetRValue(live), still.green - GetGValue(live), still.blue - GetBValue(live)}) {
        if (std::fabs(levels) <= difference.largest) continue;
        difference.largest = std::fabs(levels);
        difference.patch = patch;
    }
}

// Every pixel of a live picture whose block of the frame lies in one patch, against that patch in the still.
// The frame has `frameWidth` x `frameHeight` pixels and shows `view`; it covers `place` on the screen.
Difference CompareLive(const ScreenPicture& screen, const PixelBox& place, int frameWidth, int frameHeight,
                       const ChartView& view, const PixelPicture& still, const ChartView& stillView) {
    Difference difference;
    std::map<int, bool> compared;
    const double width = place.right - place.left, height = place.bottom - place.top;
    for (int y = static_cast<int>(place.top) + 1; y < place.bottom - 1; ++y) {
        for (int x = static_cast<int>(place.left) + 1; x < place.right - 1; ++x) {
            if (IsCovered(x, y)) continue;
            const double frameX = (x - place.left + 0.5) * frameWidth / width;
            const double frameY = (y - place.top + 0.5) * frameHeight / height;
            const auto block = [](double from) { return std::floor(from / kBlock) * kBlock; };
            const PixelBox box = {block(frameX - 1), block(frameY - 1), block(frameX + 1) + kBlock - 0.01,
                                  block(frameY + 1) + kBlock - 0.01};
            const std::optional<int> patch = PatchAt(view, frameWidth, frameHeight, box);
            if (!patch) continue;
            const PatchColor color = ColorOfPatch(still, stillView, *patch);
            if (color.red < 0) continue;
            compared[*patch] = true;
            Compare(color, screen.At(x, y), *patch, difference);
        }
    }
    difference.patches = static_cast<int>(compared.size());
    return difference;
}

// Patches of two stills that both show.
Difference CompareStills(const PixelPicture& a, const ChartView& viewOfA, const PixelPicture& b, const ChartView& viewOfB) {
    Difference difference;
    for (int patch = 0; patch < kChartColumns * kChartRows; ++patch) {
        const PatchColor one = ColorOfPatch(a, viewOfA, patch), other = ColorOfPatch(b, viewOfB, patch);
        if (one.red < 0 || other.red < 0) continue;
        ++difference.patches;
        for (const double levels : {one.red - other.red, one.green - other.green, one.blue - other.blue}) {
            if (std::fabs(levels) <= difference.largest) continue;
            difference.largest = std::fabs(levels);
            difference.patch = patch;
        }
    }
    return difference;
}

constexpr PixelBox kWholeView = {0, 0, 240, 180}, kSmallView = {40, 28, 200, 148};

class StillColors : public testing::TestWithParam<std::tuple<DWORD, DWORD>> {};

// The zoomed view: its patches are large enough for whole blocks.
TEST_P(StillColors, AreThoseOfTheLiveView) {
    const auto [whiteBalance, color] = GetParam();
    ChartCamera chart({{L"awb", whiteBalance}, {L"color", color}, {L"resolution", 1}});
    ASSERT_TRUE(chart.IsLive());
    ASSERT_TRUE(chart.ZoomTo(1));
    const ScreenPicture live(chart.camera.LiveView());
    const PixelPicture still = chart.TakePicture();
    ASSERT_EQ(still.width, 640);
    ASSERT_EQ(still.height, 480);
    const ChartView view = ViewOfChart(320, 240, 1);
    const Difference difference = CompareLive(live, kWholeView, 320, 240, view, still, view);
    EXPECT_GE(difference.patches, 20);
    EXPECT_LE(difference.largest, kLevels) << "patch " << difference.patch;
}

INSTANTIATE_TEST_SUITE_P(EveryWhiteBalanceAndColourMode, StillColors,
                         testing::Combine(testing::Range<DWORD>(0, 5), testing::Range<DWORD>(0, 3)));

struct Size {
    DWORD video;       // size of the live view
    DWORD resolution;  // of the still
    int zoom;
    int width, height;  // that the still must have
};

class StillCrop : public testing::TestWithParam<Size> {};

TEST_P(StillCrop, IsThatOfTheLiveView) {
    const Size& size = GetParam();
    ChartCamera chart({{L"resolution", size.resolution}, {L"aviresolution", size.video}, {L"imagequality", 2}});
    ASSERT_TRUE(chart.IsLive());
    ASSERT_TRUE(chart.ZoomTo(size.zoom));
    const ScreenPicture live(chart.camera.LiveView());
    const PixelPicture still = chart.TakePicture();
    ASSERT_EQ(still.width, size.width);
    ASSERT_EQ(still.height, size.height);
    const bool large = size.video == 0;
    const int frameWidth = large ? 320 : 160, frameHeight = large ? 240 : 120;
    const PixelBox place = large ? kWholeView : kSmallView;
    const ChartView stillView = ViewOfChart(size.width, size.height, size.zoom);
    const Difference difference = CompareLive(live, place, frameWidth, frameHeight,
                                              ViewOfChart(frameWidth, frameHeight, size.zoom), still, stillView);
    EXPECT_GT(difference.patches, 0);
    EXPECT_LE(difference.largest, kLevels) << "patch " << difference.patch;
}

INSTANTIATE_TEST_SUITE_P(EverySizeAndZoom, StillCrop,
                         testing::Values(Size{0, 0, 0, 1280, 1024}, Size{0, 1, 0, 1280, 960}, Size{0, 2, 0, 640, 480},
                                         Size{0, 3, 0, 320, 240}, Size{0, 1, 1, 640, 480}, Size{0, 1, 2, 320, 240},
                                         Size{1, 1, 1, 640, 480}, Size{1, 1, 2, 320, 240}));

// Zooming in shows the middle of the same scene, in the same colours.
TEST(StillZoom, ShowsTheMiddleOfTheWholePicture) {
    PixelPicture stills[3];
    for (int zoom = 0; zoom < 3; ++zoom) {
        ChartCamera chart({{L"resolution", 1}, {L"imagequality", 2}});
        ASSERT_TRUE(chart.IsLive());
        ASSERT_TRUE(chart.ZoomTo(zoom));
        stills[zoom] = chart.TakePicture();
        ASSERT_GT(stills[zoom].width, 0) << zoom;
    }
    const int patches[] = {192, 8 * 6, 4 * 4};  // the last cuts through a row at either end
    for (int zoom = 1; zoom < 3; ++zoom) {
        const Difference difference =
            CompareStills(stills[0], ViewOfChart(4, 3, 0), stills[zoom], ViewOfChart(4, 3, zoom));
        EXPECT_GE(difference.patches, patches[zoom] - 8) << zoom;
        EXPECT_LE(difference.patches, patches[zoom]) << zoom;
        EXPECT_LE(difference.largest, kLevels) << "zoom " << zoom << " patch " << difference.patch;
    }
}

struct ReviewLayout {
    DWORD video;
    DWORD resolution;
    int zoom;
};

// Whether the picture is the small one: left of it stands the background.
bool ShowsBackground(const ScreenPicture& screen) {
    static const PixelPicture background = ProgramBitmap(460);
    for (int y = 60; y < 120; ++y) {
        for (int x = 2; x < 38; ++x) {
            const uint8_t* const pixel = background.At(x, y);
            if (screen.At(x, y) != RGB(pixel[2], pixel[1], pixel[0])) return false;
        }
    }
    return true;
}

class ReviewPicture : public testing::TestWithParam<ReviewLayout> {};

// The reviewed picture comes from the file, so whatever its size it must show the live view's part of the chart,
// in the other layout: small on the background at the large video size, over the whole canvas at the small one.
TEST_P(ReviewPicture, TakesTheOtherLayout) {
    const ReviewLayout& layout = GetParam();
    ChartCamera chart({{L"resolution", layout.resolution}, {L"aviresolution", layout.video}}, 3);
    ASSERT_TRUE(chart.IsLive());
    ASSERT_TRUE(chart.ZoomTo(layout.zoom));
    const ScreenPicture live(chart.camera.LiveView());
    const PixelPicture still = chart.TakePicture();
    ASSERT_GT(still.width, 0);
    ASSERT_TRUE(chart.camera.WaitForFrames(3));
    const ScreenPicture review(chart.camera.LiveView());
    const bool small = layout.video == 0;
    PixelBox place = small ? kSmallView : kWholeView;
    if (still.width * 3 != still.height * 4) {  // narrower than the view: bars of equal width on both sides
        const double bar = (place.right - place.left) * (1 - 0.75 * still.width / still.height) / 2;
        place.left += bar;
        place.right -= bar;
    }
    const int frameWidth = std::max(320, still.width / 2), frameHeight = frameWidth * still.height / still.width;
    const ChartView view = ViewOfChart(still.width, still.height, layout.zoom);
    const Difference difference = CompareLive(review, place, frameWidth, frameHeight, view, still, view);
    EXPECT_GE(difference.patches, 4);
    EXPECT_LE(difference.largest, kLevels + 3) << "patch " << difference.patch;
    EXPECT_EQ(ShowsBackground(review), small);
    EXPECT_EQ(ShowsBackground(live), !small);
}

INSTANTIATE_TEST_SUITE_P(BothVideoSizes, ReviewPicture,
                         testing::Values(ReviewLayout{0, 1, 0}, ReviewLayout{0, 0, 0}, ReviewLayout{0, 2, 1},
                                         ReviewLayout{0, 1, 2}, ReviewLayout{1, 1, 0}, ReviewLayout{1, 3, 0},
                                         ReviewLayout{1, 1, 1}, ReviewLayout{1, 1, 2}));

}  // namespace
