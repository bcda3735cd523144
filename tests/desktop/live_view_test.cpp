// What the screen shows.
#include <gtest/gtest.h>

#include "desktop/camera_process.h"
#include "desktop/process_counts.h"
#include "desktop/screen_picture.h"

namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kRed = RGB(255, 32, 32);
constexpr RECT kCount = {180, 0, 240, 18};
constexpr RECT kRate = {150, 141, 240, 161};
constexpr RECT kWholeView = {0, 0, 240, 180};

RECT Placed(HWND child, HWND parent) {
    RECT bounds;
    GetWindowRect(child, &bounds);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&bounds), 2);
    return bounds;
}

bool operator==(const RECT& a, const RECT& b) { return EqualRect(&a, &b); }

TEST(LiveView, WindowsStandWhereTheyBelong) {
    CameraProcess camera;
    const HWND screen = camera.Screen();
    ASSERT_NE(screen, nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    RECT client;
    GetClientRect(screen, &client);
    EXPECT_TRUE((client == RECT{0, 0, 240, 268}));
    EXPECT_TRUE((Placed(camera.LiveView(), screen) == RECT{0, 0, 240, 180}));
    const struct {
        int id;
        const wchar_t* caption;
        RECT place;
    } buttons[] = {{1601, L"Shutter", {174, 201, 223, 250}},
                   {1602, L"Menu", {61, 227, 91, 257}},
                   {1603, L"Play", {101, 227, 131, 257}},
                   {1604, L"Zoom Out", {91, 188, 123, 219}},
                   {1605, L"Zoom In", {127, 188, 159, 219}}};
    for (const auto& button : buttons) {
        const HWND window = GetDlgItem(screen, button.id);
        ASSERT_NE(window, nullptr) << button.id;
        EXPECT_TRUE(Placed(window, screen) == button.place) << button.id;
        wchar_t text[32] = {};
        GetWindowTextW(window, text, 32);
        EXPECT_STREQ(text, button.caption);
        EXPECT_EQ(GetWindowLongW(window, GWL_STYLE) & BS_TYPEMASK, BS_OWNERDRAW);
    }
}

TEST(LiveView, ThePictureMoves) {
    CameraProcess camera({{}, {{L"aviresolution", 0}}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    const ScreenPicture first(camera.LiveView());
    EXPECT_GT(first.Colors(kWholeView), 500);
    EXPECT_TRUE(WaitFor([&] { return !(ScreenPicture(camera.LiveView()) == first); }));
}

TEST(LiveView, TheSmallSizeStandsOnTheBackground) {
    CameraProcess camera({{}, {{L"aviresolution", 1}}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    const ScreenPicture first(camera.LiveView());
    ASSERT_TRUE(camera.WaitForFrames(20));
    const ScreenPicture later(camera.LiveView());
    for (int x = 2; x < 38; ++x) EXPECT_EQ(first.At(x, 100), later.At(x, 100)) << x;
    EXPECT_FALSE(first == later);
}

TEST(LiveView, PlentyOfRoomCountsInWhiteFourPicturesInRed) {
    {
        CameraProcess camera;
        ASSERT_NE(camera.Screen(), nullptr);
        ASSERT_TRUE(camera.WaitForFrames(5));
        const ScreenPicture plenty(camera.LiveView());
        EXPECT_GT(plenty.Count(kWhite, kCount), 20);
        EXPECT_EQ(plenty.Count(kRed, kCount), 0);
    }
    // 2 MiB are kept back; 150 KiB a picture at the default size and quality: 4 pictures, then 5.
    CameraProcess four({{{L"HANDHELD_STORE_KB", std::to_wstring(2048 + 4 * 150 + 10)}}, {}, "", {}});
    ASSERT_NE(four.Screen(), nullptr);
    ASSERT_TRUE(four.WaitForFrames(5));
    EXPECT_GT(ScreenPicture(four.LiveView()).Count(kRed, kCount), 5);
    CameraProcess five({{{L"HANDHELD_STORE_KB", std::to_wstring(2048 + 5 * 150 + 10)}}, {}, "", {}});
    ASSERT_NE(five.Screen(), nullptr);
    ASSERT_TRUE(five.WaitForFrames(5));
    EXPECT_EQ(ScreenPicture(five.LiveView()).Count(kRed, kCount), 0);
}

TEST(LiveView, TheFirstPaintShowsNoRate) {
    CameraProcess camera({{}, {{L"aviresolution", 1}}, "silent", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(WaitFor([&] { return ScreenPicture(camera.LiveView()).Count(kWhite, kCount) > 5; }));
    EXPECT_LT(ScreenPicture(camera.LiveView()).Count(kWhite, kRate), 5);
    camera.SetCard("");
    EXPECT_TRUE(WaitFor([&] { return ScreenPicture(camera.LiveView()).Count(kWhite, kRate) > 20; }));
}

TEST(LiveView, HandlesAndObjectsStayFlat) {
    constexpr long kOpenedOnce = 8;  // far fewer than frames
    CameraProcess camera({{{L"HANDHELD_FPS", L"100"}}, {}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(50));
    const ProcessCounts before = CountHeld(camera.Handle());
    ASSERT_GT(before.handles, 0);
    ASSERT_GT(before.gdiObjects, 0);
    ASSERT_GT(before.userObjects, 0);
    ASSERT_TRUE(camera.WaitForFrames(300));
    const ProcessCounts after = CountHeld(camera.Handle());
    EXPECT_LE(after.handles, before.handles + kOpenedOnce);
    EXPECT_LE(after.gdiObjects, before.gdiObjects + kOpenedOnce);
    EXPECT_LE(after.userObjects, before.userObjects + kOpenedOnce);
}

}  // namespace
