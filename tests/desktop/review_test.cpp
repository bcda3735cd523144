// Instant review on the screen: how long it lasts, what it keeps away, and deleting the picture from it.
#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/camera_process.h"
#include "desktop/pictures.h"
#include "desktop/program_bitmap.h"
#include "desktop/screen_picture.h"

namespace {

constexpr UINT kShutter = 1601, kPlay = 1603;
constexpr UINT kActionKey = 134;
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr RECT kRate = {180, 141, 240, 161};
constexpr RECT kHint = {10, 141, 230, 161};

class Review : public testing::TestWithParam<DWORD> {
  protected:
    explicit Review(DWORD review = 3, DWORD jpgNo = 1)
        : camera({{}, {{L"aviresolution", GetParam()}, {L"instant review", review}, {L"jpgno", jpgNo},
                       {L"recordwithaudio", 0}, {L"resolution", 2}}, "", {}}) {}
    void SetUp() override {
        ASSERT_NE(camera.Screen(), nullptr);
        ASSERT_TRUE(camera.WaitForFrames(3));
    }
    void TakePicture() {
        const DWORD number = ProfileValue(L"jpgno", 1);
        camera.Command(kShutter);
        ASSERT_TRUE(WaitFor([&] { return ProfileValue(L"jpgno", 1) != number; }));
        ASSERT_TRUE(camera.WaitForFrames(3));
    }
    void Tap(int x, int y) { PostMessageW(camera.LiveView(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }
    // The question that a tap brings up, or null.
    HWND Question(int x, int y) {
        Tap(x, y);
        HWND box = nullptr;
        WaitFor([&] { return (box = camera.MessageBox()) != nullptr; }, 700);
        return box;
    }
    void Answer(HWND box, int button) {
        CameraProcess::Press(box, button);
        ASSERT_TRUE(WaitFor([&] { return camera.MessageBox() == nullptr; }));
    }
    size_t Stills() const {
        const auto calls = camera.Calls();
        return static_cast<size_t>(std::count_if(calls.begin(), calls.end(), [](const std::string& call) {
            return call.find(" still mode ") != std::string::npos;
        }));
    }
    CameraProcess camera;
};

TEST_P(Review, KeepsTheShutterAwayForItsTime) {
    TakePicture();
    const DWORD start = GetTickCount();
    camera.Command(kShutter);
    camera.ReleaseKey(kActionKey);
    ASSERT_TRUE(camera.WaitForFrames(10));
    EXPECT_EQ(Stills(), 1u);
    // The hint goes with the review.
    ASSERT_TRUE(WaitFor([&] {
        camera.Command(kShutter);
        return Stills() == 2;
    }));
    EXPECT_GE(GetTickCount() - start, 5000u);
    EXPECT_LE(GetTickCount() - start, 8000u);
}

TEST_P(Review, ShowsAHintAndNoRate) {
    ASSERT_TRUE(WaitFor([&] { return ScreenPicture(camera.LiveView()).Count(kWhite, kRate) > 20; }));
    TakePicture();
    EXPECT_GT(ScreenPicture(camera.LiveView()).Count(kWhite, kHint), 300);
}

TEST_P(Review, OkDeletesTheFileAndTakesTheNumberBack) {
    TakePicture();
    ASSERT_TRUE(std::filesystem::exists(PicturePath(camera, 1)));
    const HWND box = Question(120, 90);
    ASSERT_NE(box, nullptr);
    wchar_t caption[64] = {};
    GetWindowTextW(box, caption, 64);
    EXPECT_STREQ(caption, L"Lumetta Camera");
    EXPECT_FALSE(CameraProcess::MessageText(box).empty());
    EXPECT_NE(GetDlgItem(box, IDCANCEL), nullptr);
    Answer(box, IDOK);
    EXPECT_TRUE(WaitFor([] { return ProfileValue(L"jpgno", 0) == 1; }));
    EXPECT_FALSE(std::filesystem::exists(PicturePath(camera, 1)));
}

TEST_P(Review, CancelKeepsThePicture) {
    TakePicture();
    const HWND box = Question(120, 90);
    ASSERT_NE(box, nullptr);
    Answer(box, IDCANCEL);
    ASSERT_TRUE(camera.WaitForFrames(3));
    EXPECT_TRUE(std::filesystem::exists(PicturePath(camera, 1)));
    EXPECT_EQ(ProfileValue(L"jpgno", 0), 2u);
}

// At the small size the tap must lie where the small live picture is, though the review covers the whole canvas.
TEST_P(Review, TheTapMustLieOnThePicture) {
    TakePicture();
    const bool small = GetParam() == 1;
    const struct {
        int x, y;
        bool onSmall;
    } taps[] = {{39, 90, false}, {201, 90, false}, {120, 27, false}, {120, 153, false}, {40, 28, true}, {200, 152, true}};
    for (const auto& tap : taps) {
        if (small && !tap.onSmall) {
            Tap(tap.x, tap.y);
            ASSERT_TRUE(camera.WaitForFrames(2));
            EXPECT_EQ(camera.MessageBox(), nullptr) << tap.x << ", " << tap.y;
            continue;
        }
        const HWND box = Question(tap.x, tap.y);
        ASSERT_NE(box, nullptr) << tap.x << ", " << tap.y;
        Answer(box, IDCANCEL);
    }
}

TEST_P(Review, WithoutItATapDoesNothing) {
    EXPECT_EQ(Question(120, 90), nullptr);
    EXPECT_TRUE(camera.WaitForFrames(3));
}

// A deleted picture counts as not taken: the viewer is started without a name.
TEST_P(Review, PlayAfterDeletingTheOnlyPictureNamesNone) {
    TakePicture();
    const HWND box = Question(120, 90);
    ASSERT_NE(box, nullptr);
    Answer(box, IDOK);
    camera.Command(kPlay);
    ASSERT_TRUE(camera.WaitForEnd());
    HWND viewer = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (viewer = FindWindowW(L"HandheldPictureViewer", nullptr)) != nullptr; }));
    wchar_t title[64] = {};
    EXPECT_TRUE(WaitFor([&] { return GetWindowTextW(viewer, title, 64) != 0; }));
    EXPECT_EQ(std::wstring(title).find(L".jpg"), std::wstring::npos);
    PostMessageW(viewer, WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitFor([] { return FindWindowW(L"HandheldPictureViewer", nullptr) == nullptr; }));
}

INSTANTIATE_TEST_SUITE_P(BothVideoSizes, Review, testing::Values(0, 1));

class ReviewOfTheLastNumber : public Review {
  protected:
    ReviewOfTheLastNumber() : Review(3, 9999) {}
};

// The number wrapped when the picture was taken: taken back, it names none, and the picture stays.
TEST_P(ReviewOfTheLastNumber, DeletingGoesToNumberZero) {
    TakePicture();
    const HWND box = Question(120, 90);
    ASSERT_NE(box, nullptr);
    Answer(box, IDOK);
    EXPECT_TRUE(WaitFor([] { return ProfileValue(L"jpgno", 9) == 0; }));
    EXPECT_TRUE(std::filesystem::exists(PicturePath(camera, 9999)));
}

INSTANTIATE_TEST_SUITE_P(LargeSize, ReviewOfTheLastNumber, testing::Values(0));

// What the countdown shows on its way to the picture.
TEST(CountdownOnTheScreen, ShowsItsDigitsAndThenTheIdleMark) {
    constexpr unsigned kDigit = 420, kIdle = 431;
    CameraProcess camera({{}, {{L"aviresolution", 0}, {L"selftime", 1}, {L"instant review", 0}, {L"recordwithaudio", 0}}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    const auto shows = [&](unsigned id) {
        const PixelPicture mark = ProgramBitmap(id);
        const ScreenPicture screen(camera.LiveView());
        int opaque = 0;
        for (int y = 0; y < mark.height; ++y) {
            for (int x = 0; x < mark.width; ++x) {
                const uint8_t* const pixel = mark.At(x, y);
                const COLORREF color = RGB(pixel[2], pixel[1], pixel[0]);
                if (color == RGB(255, 0, 255)) continue;
                ++opaque;
                if (screen.At(x, 40 + y) != color) return false;
            }
        }
        return opaque > 0;
    };
    EXPECT_TRUE(WaitFor([&] { return shows(kIdle); }));
    camera.Command(kShutter);
    for (const unsigned digit : {2u, 1u, 0u}) EXPECT_TRUE(WaitFor([&] { return shows(kDigit + digit); })) << digit;
    EXPECT_TRUE(WaitFor([&] { return shows(kIdle); }));
}

}  // namespace
