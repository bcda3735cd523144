// Commands, buttons and keys, and what the card hears of them.
#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/camera_process.h"

namespace {

using Lines = std::vector<std::string>;

constexpr UINT kShutter = 1601, kZoomOut = 1604, kZoomIn = 1605, kVideo = 32837;
constexpr char kStop[] = "control 0x80000017 in 0 out 0";

class Commands : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_NE(camera.Screen(), nullptr);
        ASSERT_TRUE(camera.WaitForFrames(3));
        before = camera.Calls().size();
    }
    // The calls since the start, once there are this many of them.
    Lines Since(size_t count) { return camera.CallsSince(before, count); }
    static std::string Preview(int mode) {
        return "control 0x8000000F in " + std::to_string(mode) + " out 0 preview mode " + std::to_string(mode);
    }
    std::filesystem::path Picture(const char* name) const { return camera.Store() / "My Documents" / "My Pictures" / name; }

    CameraProcess camera{{{}, {{L"aviresolution", 0}, {L"selftime", 0}, {L"recordwithaudio", 0}, {L"instant review", 0}}, "", {}}};
    size_t before = 0;
};

TEST_F(Commands, ZoomTraceAndItsEnds) {
    for (int i = 0; i < 3; ++i) camera.Command(kZoomIn);
    for (int i = 0; i < 3; ++i) camera.Command(kZoomOut);
    EXPECT_EQ(Since(8), (Lines{kStop, Preview(9), kStop, Preview(17), kStop, Preview(9), kStop, Preview(4)}));
    EXPECT_TRUE(camera.WaitForFrames(3));
}

TEST_F(Commands, HardwareKeysZoomLikeTheButtons) {
    camera.ReleaseKey(196);
    camera.ReleaseKey(195);
    EXPECT_EQ(Since(4), (Lines{kStop, Preview(9), kStop, Preview(4)}));
}

TEST_F(Commands, StillTraceAndTheFile) {
    camera.Command(kShutter);
    EXPECT_EQ(Since(3), (Lines{kStop,
                               "control 0x80000007 in 220 out 0 still mode 1 quality 1 sound 0 path "
                               "\\My Documents\\My Pictures\\snap0001.jpg",
                               Preview(4)}));
    EXPECT_TRUE(std::filesystem::exists(Picture("snap0001.jpg")));
    EXPECT_TRUE(WaitFor([] { return ProfileValue(L"jpgno", 0) == 2; }));
}

TEST_F(Commands, TheActionKeyTakesAPictureToo) {
    camera.ReleaseKey(134);
    Since(3);
    EXPECT_TRUE(WaitFor([&] { return std::filesystem::exists(Picture("snap0001.jpg")); }));
}

TEST_F(Commands, ActionKeyFlushesThreeMessages) {
    camera.SetCard("silent\nrefuse-still");
    WaitFor([&] { return camera.Calls().size() > before; }, 300);  // frames still on their way
    camera.Freeze();
    camera.ReleaseKey(134);
    for (int i = 0; i < 4; ++i) camera.Command(kZoomIn);
    camera.Thaw();
    const auto seen = [&](int mode) {
        const Lines calls = camera.Calls();
        return std::find(calls.begin(), calls.end(), Preview(mode)) != calls.end();
    };
    EXPECT_TRUE(WaitFor([&] { return seen(9); }));
    camera.SetCard("");
    EXPECT_TRUE(camera.WaitForFrames(3));
    EXPECT_FALSE(seen(17));
}

TEST_F(Commands, EscapeIsNoExit) {
    PostMessageW(camera.Screen(), WM_KEYDOWN, VK_ESCAPE, 0);
    PostMessageW(camera.Screen(), WM_COMMAND, IDCANCEL, 0);
    PostMessageW(camera.Screen(), WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(camera.WaitForFrames(5));
}

TEST_F(Commands, EnterDoesNothing) {
    PostMessageW(camera.Screen(), WM_KEYDOWN, VK_RETURN, 0);
    PostMessageW(camera.Screen(), WM_KEYUP, VK_RETURN, 0);
    EXPECT_TRUE(camera.WaitForFrames(5));
    EXPECT_EQ(Since(0), Lines());
}

TEST_F(Commands, VideoModeStoresTheAidsAsOff) {
    camera.Command(kVideo);
    EXPECT_TRUE(WaitFor([] { return ProfileValue(L"selftime", 9) == 0 && ProfileValue(L"business card", 9) == 0; }));
}

TEST(FullStore, TheTwoShuttersWordItDifferently) {
    CameraProcess camera({{{L"HANDHELD_STORE_KB", L"2100"}, {L"HANDHELD_LCID", L"1031"}}, {}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    HWND box = nullptr;
    camera.Command(kShutter);
    ASSERT_TRUE(WaitFor([&] { return (box = camera.MessageBox()) != nullptr; }));
    EXPECT_EQ(CameraProcess::MessageText(box), L"Not enough space, can not take a snapshot!");
    CameraProcess::Press(box, IDOK);
    ASSERT_TRUE(WaitFor([&] { return camera.MessageBox() == nullptr; }));
    camera.ReleaseKey(134);
    ASSERT_TRUE(WaitFor([&] { return (box = camera.MessageBox()) != nullptr; }));
    EXPECT_FALSE(CameraProcess::MessageText(box).empty());
    EXPECT_EQ(CameraProcess::MessageText(box).find(L"Not enough"), std::wstring::npos);
    CameraProcess::Press(box, IDOK);
    EXPECT_TRUE(WaitFor([&] { return camera.MessageBox() == nullptr; }));
    EXPECT_FALSE(std::filesystem::exists(camera.Store() / "My Documents" / "My Pictures" / "snap0001.jpg"));
}

}  // namespace
