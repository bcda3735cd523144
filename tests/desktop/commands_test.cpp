// Commands, buttons and keys, and what the card hears of them.
#include <gtest/gtest.h>

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
    Lines Since(size_t count) {
        WaitFor([&] { return camera.Calls().size() >= before + count; });
        const Lines all = camera.Calls();
        return Lines(all.begin() + static_cast<long>(before), all.end());
    }
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

}  // namespace
