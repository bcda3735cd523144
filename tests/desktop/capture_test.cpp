// Taking pictures: what the card hears, what lies in the store, and when.
#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/camera_process.h"
#include "desktop/picture_file.h"
#include "desktop/pictures.h"

namespace {

using Lines = std::vector<std::string>;
using Settings = std::vector<std::pair<std::wstring, DWORD>>;

constexpr UINT kShutter = 1601, kZoomOut = 1604, kZoomIn = 1605, kVideo = 32837, kStill = 32839;
constexpr UINT kActionKey = 134, kFireSelfTimer = WM_USER + 20;
constexpr char kStop[] = "control 0x80000017 in 0 out 0";

std::string Preview(int mode) {
    return "control 0x8000000F in " + std::to_string(mode) + " out 0 preview mode " + std::to_string(mode);
}
std::string StillOf(const std::string& request, const std::string& name = "snap0001.jpg") {
    return "control 0x80000007 in 220 out 0 still " + request + " path \\My Documents\\My Pictures\\" + name;
}
// A camera with live frames; `calls` are those since then.
class LiveCamera {
  public:
    explicit LiveCamera(Settings settings, const std::string& card = "")
        : camera({{}, With(std::move(settings)), card, {}}) {
        EXPECT_NE(camera.Screen(), nullptr);
        EXPECT_TRUE(camera.WaitForFrames(3));
        before = camera.Calls().size();
    }
    Lines Calls(size_t count) const { return camera.CallsSince(before, count); }
    size_t Stills() const {
        const Lines calls = camera.CallsSince(before, 0);
        return static_cast<size_t>(std::count_if(calls.begin(), calls.end(), [](const std::string& call) {
            return call.find(" still mode ") != std::string::npos;
        }));
    }

    CameraProcess camera;
    size_t before = 0;

  private:
    // The first of two equal names counts least: what a test asks for comes last.
    static Settings With(Settings settings) {
        settings.insert(settings.begin(), {{L"aviresolution", 0}, {L"recordwithaudio", 0}, {L"instant review", 0}});
        return settings;
    }
};

struct Capture {
    Settings settings;
    int zoom;
    std::string request;  // as the card logs it
    std::vector<int> previews;  // modes of the zoom steps, and after the picture
    int width, height;
};

class CaptureTrace : public testing::TestWithParam<Capture> {};

TEST_P(CaptureTrace, GoesToTheCardAndTheFileIntoTheStore) {
    const Capture& capture = GetParam();
    for (const DWORD review : {0, 1}) {
        Settings settings = capture.settings;
        settings.emplace_back(L"instant review", review);
        LiveCamera live(settings);
        Lines expected;
        for (int i = 0; i < capture.zoom; ++i) {
            live.camera.Command(kZoomIn);
            expected.insert(expected.end(), {kStop, Preview(capture.previews[static_cast<size_t>(i)])});
        }
        live.camera.Command(kShutter);
        expected.insert(expected.end(), {kStop, StillOf(capture.request), Preview(capture.previews.back())});
        EXPECT_EQ(live.Calls(expected.size()), expected) << "review " << review;
        ASSERT_TRUE(WaitFor([] { return ProfileValue(L"jpgno", 1) == 2; }));
        const PixelPicture picture = ReadPicture(PicturePath(live.camera, 1));
        EXPECT_EQ(picture.width, capture.width);
        EXPECT_EQ(picture.height, capture.height);
        EXPECT_TRUE(live.camera.WaitForFrames(3));
        EXPECT_EQ(live.Calls(expected.size()), expected) << "review " << review;
    }
}

INSTANTIATE_TEST_SUITE_P(
    EverySizeZoomAndQuality, CaptureTrace,
    testing::Values(
        Capture{{{L"resolution", 0}}, 0, "mode 0 quality 1 sound 0", {4}, 1280, 1024},
        Capture{{{L"resolution", 1}}, 0, "mode 1 quality 1 sound 0", {4}, 1280, 960},
        Capture{{{L"resolution", 2}}, 0, "mode 2 quality 1 sound 0", {4}, 640, 480},
        Capture{{{L"resolution", 3}}, 0, "mode 4 quality 1 sound 0", {4}, 320, 240},
        Capture{{{L"resolution", 0}}, 1, "mode 7 quality 1 sound 0", {9, 9}, 640, 480},
        Capture{{{L"resolution", 0}}, 2, "mode 17 quality 1 sound 0", {9, 17, 17}, 320, 240},
        Capture{{{L"aviresolution", 1}}, 0, "mode 1 quality 1 sound 0", {6}, 1280, 960},
        Capture{{{L"aviresolution", 1}}, 1, "mode 7 quality 1 sound 0", {20, 20}, 640, 480},
        Capture{{{L"aviresolution", 1}}, 2, "mode 17 quality 1 sound 0", {20, 21, 21}, 320, 240},
        Capture{{{L"imagequality", 0}}, 0, "mode 1 quality 0 sound 0", {4}, 1280, 960},
        Capture{{{L"imagequality", 2}}, 0, "mode 1 quality 2 sound 0", {4}, 1280, 960},
        Capture{{{L"recordwithaudio", 1}}, 0, "mode 1 quality 1 sound 1", {4}, 1280, 960}));

// Back at zoom 1 the larger of the two zoomed sizes is taken again.
TEST(CaptureAfterZoomingOut, TakesTheLargerZoomedSize) {
    LiveCamera live({});
    for (const UINT command : {kZoomIn, kZoomIn, kZoomOut, kShutter}) live.camera.Command(command);
    EXPECT_EQ(live.Calls(9), (Lines{kStop, Preview(9), kStop, Preview(17), kStop, Preview(9), kStop,
                                    StillOf("mode 7 quality 1 sound 0"), Preview(9)}));
}

TEST(ZoomTrace, OfTheSmallSize) {
    LiveCamera live({{L"aviresolution", 1}});
    for (const UINT command : {kZoomIn, kZoomIn, kZoomIn, kZoomOut, kZoomOut, kZoomOut}) live.camera.Command(command);
    EXPECT_EQ(live.Calls(8), (Lines{kStop, Preview(20), kStop, Preview(21), kStop, Preview(20), kStop, Preview(6)}));
    EXPECT_TRUE(live.camera.WaitForFrames(3));
}

TEST(ZoomTrace, OfAnUnknownSizeOnlyStops) {
    CameraProcess camera({{}, {{L"aviresolution", 5}, {L"recordwithaudio", 0}}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(WaitFor([&] { return camera.Calls().size() >= 3; }));
    for (const UINT command : {kZoomIn, kZoomOut}) camera.Command(command);
    EXPECT_EQ(camera.CallsSince(3, 2), (Lines{kStop, kStop}));
}

TEST(ZoomTrace, IsKeptFromModeToMode) {
    LiveCamera live({});
    for (const UINT command : {kZoomIn, kVideo, kStill, kZoomIn}) live.camera.Command(command);
    EXPECT_EQ(live.Calls(4), (Lines{kStop, Preview(9), kStop, Preview(17)}));
}

TEST(CaptureNumber, AfterTheLastComesTheFirst) {
    LiveCamera live({{L"jpgno", 9999}});
    live.camera.Command(kShutter);
    EXPECT_EQ(live.Calls(3)[1], StillOf("mode 1 quality 1 sound 0", "snap9999.jpg"));
    EXPECT_TRUE(WaitFor([] { return ProfileValue(L"jpgno", 0) == 1; }));
    EXPECT_TRUE(std::filesystem::exists(PicturePath(live.camera, 9999)));
}

TEST(CaptureNumber, AdvancesThoughTheCardRefuses) {
    LiveCamera live({}, "refuse-still");
    live.camera.Command(kShutter);
    EXPECT_TRUE(WaitFor([] { return ProfileValue(L"jpgno", 0) == 2; }));
    EXPECT_FALSE(std::filesystem::exists(PicturePath(live.camera, 1)));
    EXPECT_TRUE(live.camera.WaitForFrames(3));
}

// The low 32 bits of the free room count: with a little more than 4 GiB it looks like a little.
TEST(CaptureRoom, IsCountedInThirtyTwoBits) {
    constexpr uint64_t kWordKb = 4u * 1024 * 1024;
    for (const auto& [kilobytes, taken] : {std::pair<uint64_t, bool>{kWordKb + 1024, false}, {kWordKb + 10240, true}}) {
        CameraProcess camera({{{L"HANDHELD_STORE_KB", std::to_wstring(kilobytes)}}, {{L"instant review", 0}}, "", {}});
        ASSERT_NE(camera.Screen(), nullptr);
        ASSERT_TRUE(camera.WaitForFrames(3));
        camera.Command(kShutter);
        ASSERT_TRUE(WaitFor([&] { return camera.MessageBox() != nullptr || ProfileValue(L"jpgno", 1) == 2; }));
        EXPECT_EQ(camera.MessageBox() == nullptr, taken) << kilobytes;
        if (camera.MessageBox() != nullptr) CameraProcess::Press(camera.MessageBox(), IDOK);
        EXPECT_EQ(std::filesystem::exists(PicturePath(camera, 1)), taken) << kilobytes;
    }
}

TEST(CaptureRoom, TwoMebibytesAndALittleHoldNoPicture) {
    CameraProcess camera({{{L"HANDHELD_STORE_KB", L"2049"}}, {}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    const size_t before = camera.Calls().size();
    camera.Command(kShutter);
    HWND box = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (box = camera.MessageBox()) != nullptr; }));
    EXPECT_EQ(CameraProcess::MessageText(box), L"Not enough space, can not take a snapshot!");
    CameraProcess::Press(box, IDOK);
    EXPECT_TRUE(WaitFor([&] { return camera.MessageBox() == nullptr; }));
    EXPECT_EQ(camera.CallsSince(before, 0), Lines());
    EXPECT_EQ(ProfileValue(L"jpgno", 1), 1u);
}

// Kept from the days when another thread fired the timer: it takes a picture at once, whatever the timer's setting.
TEST(SelfTimerMessage, TakesAPictureAtOnce) {
    for (const DWORD selfTimer : {0, 2}) {
        LiveCamera live({{L"selftime", selfTimer}});
        PostMessageW(live.camera.Screen(), kFireSelfTimer, 0, 0);
        EXPECT_EQ(live.Calls(3), (Lines{kStop, StillOf("mode 1 quality 1 sound 0"), Preview(4)}));
    }
}

struct Countdown {
    DWORD setting;
    DWORD least, most;  // milliseconds from the shutter to the picture
    UINT key;           // 0: the button on the screen
    const char* card;   // faults while it counts
};

class SelfTimer : public testing::TestWithParam<Countdown> {};

TEST_P(SelfTimer, TakesOnePictureInItsTime) {
    const Countdown& countdown = GetParam();
    LiveCamera live({{L"selftime", countdown.setting}, {L"instant review", 1}});
    live.camera.SetCard(countdown.card);
    const DWORD start = GetTickCount();
    if (countdown.key != 0)
        live.camera.ReleaseKey(countdown.key);
    else
        live.camera.Command(kShutter);
    ASSERT_TRUE(WaitFor([&] { return live.Stills() != 0; }));
    const DWORD passed = GetTickCount() - start;
    EXPECT_GE(passed, countdown.least);
    EXPECT_LE(passed, countdown.most);
    live.camera.SetCard("");
    ASSERT_TRUE(WaitFor([&] { return std::filesystem::exists(PicturePath(live.camera, 1)); }));
    ASSERT_TRUE(live.camera.WaitForFrames(45));  // three seconds
    EXPECT_EQ(live.Stills(), 1u);
    EXPECT_EQ(ProfileValue(L"jpgno", 0), 2u);
    if (*countdown.card == 0) {
        EXPECT_EQ(live.Calls(3), (Lines{kStop, StillOf("mode 1 quality 1 sound 0"), Preview(4)}));
    }
}

INSTANTIATE_TEST_SUITE_P(ShortAndLong, SelfTimer,
                         testing::Values(Countdown{1, 3000, 4500, 0, ""}, Countdown{1, 3000, 4500, kActionKey, ""},
                                         Countdown{2, 11000, 12500, 0, ""}, Countdown{1, 3000, 4500, 0, "silent"}));

TEST(SelfTimerRestart, ASecondPressCountsAnewAndStillTakesOne) {
    LiveCamera live({{L"selftime", 1}});
    live.camera.Command(kShutter);
    ASSERT_TRUE(live.camera.WaitForFrames(30));
    EXPECT_EQ(live.Stills(), 0u);
    const DWORD again = GetTickCount();
    live.camera.Command(kShutter);
    ASSERT_TRUE(WaitFor([&] { return live.Stills() != 0; }));
    EXPECT_GE(GetTickCount() - again, 3000u);
    ASSERT_TRUE(live.camera.WaitForFrames(45));
    EXPECT_EQ(live.Stills(), 1u);
}

TEST(SelfTimerInVideoMode, EndsWithoutAPicture) {
    LiveCamera live({{L"selftime", 1}});
    live.camera.Command(kShutter);
    live.camera.Command(kVideo);
    live.camera.Command(kStill);
    ASSERT_TRUE(live.camera.WaitForFrames(60));
    EXPECT_EQ(live.Stills(), 0u);
}

TEST(OtherKeys, DoNothing) {
    LiveCamera live({});
    for (const UINT key : {133u, 135u, 192u, 197u, static_cast<UINT>('A'), static_cast<UINT>(VK_SPACE)})
        live.camera.ReleaseKey(key);
    EXPECT_TRUE(live.camera.WaitForFrames(5));
    EXPECT_EQ(live.Calls(0), Lines());
}

// The keys act when they are let go.
TEST(OtherKeys, PressingAKeyAloneDoesNothing) {
    LiveCamera live({});
    for (const UINT key : {134u, 193u, 194u, 195u, 196u}) PostMessageW(live.camera.Screen(), WM_KEYDOWN, key, 0);
    EXPECT_TRUE(live.camera.WaitForFrames(5));
    EXPECT_EQ(live.Calls(0), Lines());
}

}  // namespace
