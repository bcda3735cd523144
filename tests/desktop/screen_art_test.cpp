// The strip below the live view: its bitmaps by mode and size, the buttons in both states, the lettering by language.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "desktop/camera_process.h"
#include "desktop/program_bitmap.h"
#include "desktop/screen_picture.h"

namespace {

constexpr UINT kVideo = 32837, kStill = 32839;
constexpr unsigned kButtonGround = 133;
constexpr unsigned kStripVideo = 265, kStripStillSmall = 335, kStripStillLarge = 336;
constexpr int kStripTop = 180;

constexpr COLORREF kSeeThrough = RGB(255, 0, 255);

struct Button {
    int id;
    int x, y, width, height;  // on the strip
    unsigned normal, pressed;
};
constexpr Button kButtons[] = {{1601, 174, 21, 49, 49, 287, 278},
                               {1602, 61, 47, 30, 30, 285, 279},
                               {1603, 101, 47, 30, 30, 286, 280},
                               {1604, 91, 8, 32, 31, 281, 282},
                               {1605, 127, 8, 32, 31, 283, 284}};

// Bitmaps of the lettering: shutter, menu, play, zoom out, zoom in; for the Still strips and for the Video strip.
struct Lettering {
    unsigned still[5], video[5];
};
constexpr Lettering kEuropean = {{174, 178, 176, 180, 182}, {175, 179, 177, 181, 183}};
constexpr Lettering kOther = {{136, 155, 134, 143, 145}, {137, 156, 135, 144, 146}};
constexpr POINT kLetteringPlaces[] = {{174, 76}, {60, 80}, {100, 80}, {60, 9}, {163, 9}};

COLORREF ColorOf(const PixelPicture& picture, int x, int y) {
    const uint8_t* const pixel = picture.At(x, y);
    return RGB(pixel[2], pixel[1], pixel[0]);
}

void DrawOver(PixelPicture& ground, const PixelPicture& picture, int left, int top) {
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            if (ColorOf(picture, x, y) != kSeeThrough)
                std::copy_n(picture.At(x, y), 3,
                            &ground.pixels[(static_cast<size_t>(top + y) * ground.width + left + x) * 3]);
}

// The whole strip as it must look; `pressed` is the id of a button that is held down.
PixelPicture ExpectedStrip(unsigned strip, const unsigned (&lettering)[5], int pressed = 0) {
    PixelPicture expected = ProgramBitmap(strip);
    const PixelPicture ground = ProgramBitmap(kButtonGround);
    for (int i = 0; i < 5; ++i)
        DrawOver(expected, ProgramBitmap(lettering[i]), kLetteringPlaces[i].x, kLetteringPlaces[i].y);
    for (const Button& button : kButtons) {
        for (int y = button.y; y < button.y + button.height; ++y)
            std::copy_n(ground.At(button.x, y), button.width * 3,
                        &expected.pixels[(static_cast<size_t>(y) * expected.width + button.x) * 3]);
        DrawOver(expected, ProgramBitmap(button.id == pressed ? button.pressed : button.normal), button.x, button.y);
    }
    return expected;
}

// The first place at which the screen's strip looks otherwise.
std::optional<POINT> Difference(CameraProcess& camera, const PixelPicture& expected) {
    const ScreenPicture screen(camera.Screen());
    for (int y = 0; y < expected.height && kStripTop + y < screen.Height(); ++y)
        for (int x = 0; x < expected.width; ++x)
            if (screen.At(x, kStripTop + y) != ColorOf(expected, x, y)) return POINT{x, y};
    return std::nullopt;
}

testing::AssertionResult Shows(CameraProcess& camera, const PixelPicture& expected) {
    if (expected.width == 0) return testing::AssertionFailure() << "the program lacks a bitmap";
    std::optional<POINT> place;
    if (WaitFor([&] { return !(place = Difference(camera, expected)); }, 5000)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "differs at " << place->x << ", " << place->y << " of the strip: "
                                       << std::hex << ScreenPicture(camera.Screen()).At(place->x, kStripTop + place->y)
                                       << " instead of " << ColorOf(expected, place->x, place->y);
}

class Strip : public testing::TestWithParam<std::pair<const wchar_t*, const Lettering*>> {};

TEST_P(Strip, CarriesModeSizeAndLettering) {
    const auto [locale, lettering] = GetParam();
    for (const auto& [size, strip] : {std::pair<DWORD, unsigned>{0, kStripStillLarge}, {1, kStripStillSmall}}) {
        CameraProcess camera({{{L"HANDHELD_LCID", locale}}, {{L"aviresolution", size}}, "", {}});
        ASSERT_NE(camera.Screen(), nullptr);
        ASSERT_TRUE(camera.WaitForFrames(3));
        EXPECT_TRUE(Shows(camera, ExpectedStrip(strip, lettering->still))) << size;
        camera.Command(kVideo);
        EXPECT_TRUE(Shows(camera, ExpectedStrip(kStripVideo, lettering->video))) << size;
        camera.Command(kStill);
        EXPECT_TRUE(Shows(camera, ExpectedStrip(strip, lettering->still))) << size;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryLanguage, Strip,
                         testing::Values(std::pair{L"1033", &kOther}, std::pair{L"2052", &kOther},
                                         std::pair{L"1028", &kOther}, std::pair{L"1042", &kOther},
                                         std::pair{L"1031", &kEuropean}, std::pair{L"1036", &kEuropean},
                                         std::pair{L"1040", &kEuropean}, std::pair{L"1046", &kEuropean},
                                         std::pair{L"3082", &kEuropean}));

// A video size that has no strip of its own keeps the one that is there: at the start the plain one.
TEST(StripBitmap, StaysForAnUnknownVideoSize) {
    CameraProcess camera({{}, {{L"aviresolution", 7}}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    EXPECT_TRUE(Shows(camera, ExpectedStrip(kButtonGround, kOther.still)));
    camera.Command(kVideo);
    EXPECT_TRUE(Shows(camera, ExpectedStrip(kStripVideo, kOther.video)));
    camera.Command(kStill);
    EXPECT_TRUE(Shows(camera, ExpectedStrip(kStripVideo, kOther.video)));
}

TEST(Buttons, LookPressedWhileTheyAreHeld) {
    CameraProcess camera({{}, {{L"aviresolution", 0}}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    for (const Button& button : kButtons) {
        const HWND window = GetDlgItem(camera.Screen(), button.id);
        PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(15, 15));
        EXPECT_TRUE(Shows(camera, ExpectedStrip(kStripStillLarge, kOther.still, button.id))) << button.id;
        PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(-50, -50));  // away from the button: no command
        EXPECT_TRUE(Shows(camera, ExpectedStrip(kStripStillLarge, kOther.still))) << button.id;
    }
}

TEST(Buttons, DoNotTakeTheScreensActivation) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    for (const Button& button : kButtons)
        EXPECT_TRUE(GetWindowLongW(GetDlgItem(camera.Screen(), button.id), GWL_EXSTYLE) & WS_EX_NOACTIVATE) << button.id;
}

TEST(Sounds, AllFiveAreInTheProgram) {
    for (const wchar_t* name : {L"BEEP", L"ISOUND", L"SNAP", L"ZOOMIN", L"ZOOMOUT"})
        EXPECT_GT(ProgramSoundBytes(name), 44u) << name;
}

}  // namespace
