// The Menu... command around the settings sheet, and what happens when the screen closes under a dialog.
#include <gtest/gtest.h>

#include "desktop/camera_process.h"
#include "desktop/process_counts.h"
#include "desktop/screen_picture.h"

namespace {

using Lines = std::vector<std::string>;

constexpr UINT kMenu = 32771, kExit = 32827, kAbout = 32829, kVideo = 32837, kStill = 32839;
constexpr UINT kMenuButton = 1602, kZoomIn = 1605;
constexpr UINT kMenuKey = 193;
constexpr char kStop[] = "control 0x80000017 in 0 out 0";
constexpr char kParameters[] = "control 0x8000001B in 16 out 0 params awb 3 color 2 quality 0 metering 0";
constexpr int kModeLeft = 40, kBarBottom = 310;  // a place on the menu bar's second button

std::string Preview(int mode) {
    return "control 0x8000000F in " + std::to_string(mode) + " out 0 preview mode " + std::to_string(mode);
}

class Menu : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_NE(camera.Screen(), nullptr);
        ASSERT_TRUE(camera.WaitForFrames(3));
        before = camera.Calls().size();
    }
    HWND Open(UINT command = kMenu) {
        camera.Command(command);
        HWND sheet = nullptr;
        EXPECT_TRUE(WaitFor([&] { return (sheet = camera.Dialog()) != nullptr; }));
        return sheet;
    }
    void Close(int button) {
        PostMessageW(camera.Dialog(), WM_COMMAND, static_cast<WPARAM>(button), 0);
        ASSERT_TRUE(WaitFor([&] { return camera.Dialog() == nullptr && Bar() != nullptr; }));
    }
    HWND Bar() { return FindWindowExW(camera.Screen(), nullptr, L"menu_worker", nullptr); }

    // What the Mode pop-up looks like.
    ScreenPicture ModeMenu() {
        RECT place;
        GetWindowRect(camera.Screen(), &place);
        PostMessageW(camera.Screen(), WM_NCLBUTTONDOWN, HTMENU,
                     MAKELPARAM(place.left + kModeLeft, place.top + kBarBottom));
        HWND popup = nullptr;
        EXPECT_TRUE(
            WaitFor([&] { return (popup = FindWindowW(L"#32768", nullptr)) && IsWindowVisible(popup); }));
        EXPECT_TRUE(camera.WaitForFrames(2));  // the menu has been painted by then
        const ScreenPicture picture(popup);
        PostMessageW(popup, WM_KEYDOWN, VK_ESCAPE, 0);
        EXPECT_TRUE(WaitFor([] { return FindWindowW(L"#32768", nullptr) == nullptr; }));
        return picture;
    }

    CameraProcess camera{
        {{},
         {{L"aviresolution", 0}, {L"awb", 3}, {L"color", 2}, {L"imagequality", 0}, {L"ae metering", 0}},
         "",
         {}}};
    size_t before = 0;
};

TEST_F(Menu, CancelRestartsTheStreamAndSendsNothing) {
    Open();
    EXPECT_EQ(camera.CallsSince(before, 1), (Lines{kStop}));
    const size_t frames = camera.Frames();
    Sleep(500);
    EXPECT_EQ(camera.Frames(), frames);
    Close(IDCANCEL);
    EXPECT_EQ(camera.CallsSince(before, 2), (Lines{kStop, Preview(4)}));
    EXPECT_TRUE(camera.WaitForFrames(3));
    EXPECT_EQ(camera.CallsSince(before, 2).size(), 2u);
}

TEST_F(Menu, OkSendsTheImageParametersFirst) {
    Open();
    const DWORD start = GetTickCount();
    Close(IDOK);
    EXPECT_EQ(camera.CallsSince(before, 3), (Lines{kStop, kParameters, Preview(4)}));
    EXPECT_GE(GetTickCount() - start, 100u);
    EXPECT_TRUE(camera.WaitForFrames(3));
}

TEST_F(Menu, ButtonOpensItToo) {
    Open(kMenuButton);
    Close(IDCANCEL);
    EXPECT_EQ(camera.CallsSince(before, 2), (Lines{kStop, Preview(4)}));
}

TEST_F(Menu, KeyOpensItToo) {
    camera.ReleaseKey(kMenuKey);
    ASSERT_TRUE(WaitFor([&] { return camera.Dialog() != nullptr; }));
    Close(IDCANCEL);
    EXPECT_EQ(camera.CallsSince(before, 2), (Lines{kStop, Preview(4)}));
}

TEST_F(Menu, TheZoomIsKept) {
    camera.Command(kZoomIn);
    ASSERT_EQ(camera.CallsSince(before, 2), (Lines{kStop, Preview(9)}));
    Open();
    Close(IDOK);
    EXPECT_EQ(camera.CallsSince(before, 5), (Lines{kStop, Preview(9), kStop, kParameters, Preview(9)}));
    EXPECT_TRUE(camera.WaitForFrames(3));
}

TEST_F(Menu, TheSheetCoversTheScreenUnderTheProgramsName) {
    const HWND sheet = Open();
    RECT screen, place;
    GetWindowRect(camera.Screen(), &screen);
    GetWindowRect(sheet, &place);
    EXPECT_TRUE(EqualRect(&screen, &place));
    wchar_t title[32] = {};
    GetWindowTextW(sheet, title, 32);
    EXPECT_STREQ(title, L"Lumetta Camera");
}

TEST_F(Menu, TheMenuBarGoesAndComesBack) {
    ASSERT_NE(Bar(), nullptr);
    Open();
    EXPECT_EQ(Bar(), nullptr);
    Close(IDCANCEL);
    EXPECT_NE(Bar(), nullptr);
}

TEST_F(Menu, TheNewMenuBarMarksTheMode) {
    const ScreenPicture still = ModeMenu();
    camera.Command(kVideo);
    const ScreenPicture video = ModeMenu();
    ASSERT_FALSE(video == still);
    Open();
    Close(IDCANCEL);
    EXPECT_TRUE(ModeMenu() == video);
    camera.Command(kStill);
    Open();
    Close(IDOK);
    EXPECT_TRUE(ModeMenu() == still);
}

TEST_F(Menu, NothingIsLeftBehind) {
    constexpr int kRounds = 30;
    constexpr int kKept = 10;  // by the system for the next time, however often
    const auto leaf = [&](UINT command) {
        Open(command);
        Close(IDCANCEL);
    };
    leaf(kMenu);
    leaf(kAbout);
    const ProcessCounts counts = CountHeld(camera.Handle());
    for (int i = 0; i < kRounds; ++i) {
        leaf(kMenu);
        leaf(kAbout);
    }
    ASSERT_TRUE(camera.WaitForFrames(3));
    const ProcessCounts later = CountHeld(camera.Handle());
    EXPECT_LE(later.handles, counts.handles + kKept);
    EXPECT_LE(later.gdiObjects, counts.gdiObjects + kKept);
    EXPECT_LE(later.userObjects, counts.userObjects + kKept);
}

struct WayOut {
    UINT dialog;
    UINT message;
    WPARAM parameter;
};
class ClosingUnderADialog : public testing::TestWithParam<WayOut> {};

TEST_P(ClosingUnderADialog, EndsTheProgram) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    camera.Command(GetParam().dialog);
    ASSERT_TRUE(WaitFor([&] { return camera.Dialog() != nullptr; }));
    const size_t before = camera.Calls().size();
    PostMessageW(camera.Screen(), GetParam().message, GetParam().parameter, 0);
    ASSERT_TRUE(camera.WaitForEnd());
    DWORD code = 1;
    GetExitCodeProcess(camera.Handle(), &code);
    EXPECT_EQ(code, 0u);
    const Lines calls = camera.CallsSince(before, 1);
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls[0], "control 0x8000002B in 0 out 0");
    for (const std::string& call : calls) EXPECT_EQ(call.find("preview"), std::string::npos) << call;
}

INSTANTIATE_TEST_SUITE_P(ByExitAndByClose, ClosingUnderADialog,
                         testing::Values(WayOut{kAbout, WM_COMMAND, kExit}, WayOut{kAbout, WM_CLOSE, 0},
                                         WayOut{kMenu, WM_COMMAND, kExit}, WayOut{kMenu, WM_CLOSE, 0}));

}  // namespace
