// The card pulled out and put back while the camera runs.
#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/camera_process.h"

namespace {

using Lines = std::vector<std::string>;

Lines After(const Lines& lines, size_t first) {
    return first < lines.size() ? Lines(lines.begin() + static_cast<long>(first), lines.end()) : Lines();
}

TEST(LostCard, ASilentCardIsReopenedAndStarted) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    const size_t before = camera.Calls().size();
    camera.SetCard("silent");
    ASSERT_TRUE(WaitFor([&] { return camera.Calls().size() >= before + 6; }));
    camera.SetCard("");
    ASSERT_TRUE(camera.WaitForFrames(3));
    Lines trace = After(camera.Calls(), before);
    trace.erase(std::remove_if(trace.begin(), trace.end(), [](const std::string& line) { return line.compare(0, 5, "card ") == 0; }),
                trace.end());
    trace.resize(std::min<size_t>(trace.size(), 5));
    EXPECT_EQ(trace, (Lines{"close", "open access 0xC0000000 share 0", "control 0x80000027 in 0 out 0",
                            "control 0x80000017 in 0 out 0", "control 0x8000000F in 6 out 0 preview mode 6"}));
}

TEST(LostCard, ACardThatStaysAwayClosesTheProgramAfterTwoFailures) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    camera.SetCard("unplugged");
    ASSERT_TRUE(camera.WaitForEnd());
    const Lines calls = camera.Calls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "open access 0xC0000000 share 0 failed"), 2);
    EXPECT_EQ(camera.MessageBox(), nullptr);
}

TEST(LostCard, ACardPutBackAfterOneFailureGoesOn) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    for (int i = 0; i < 3; ++i) {
        camera.SetCard("unplugged");
        const size_t before = camera.Calls().size();
        ASSERT_TRUE(WaitFor([&] {
            const Lines now = After(camera.Calls(), before);
            return std::count(now.begin(), now.end(), "open access 0xC0000000 share 0 failed") == 1;
        }));
        camera.SetCard("");
        ASSERT_TRUE(camera.WaitForFrames(3)) << "round " << i;
    }
}

}  // namespace
