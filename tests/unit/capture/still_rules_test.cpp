#include "capture/still_rules.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

class StillRules : public testing::Test {
  protected:
    bool Fill(const std::wstring& path = L"\\a.jpg") {
        std::memset(&request, 0xEE, sizeof(request));
        return FillStillRequest(request, settings, screen, settings.resolution, path, 0x12345678);
    }
    CameraSettings settings;
    ScreenState screen;
    StillRequest request;
};

TEST_F(StillRules, ModeFollowsZoomResolutionAndSelector) {
    for (int32_t resolution : {0, 1, 2}) EXPECT_EQ(StillMode(resolution, screen), resolution);
    EXPECT_EQ(StillMode(3, screen), 4);
    screen.zoom = 1;
    EXPECT_EQ(StillMode(0, screen), 7);
    screen.zoomedSizeSelector = 3;
    EXPECT_EQ(StillMode(0, screen), 8);
    screen.zoomedSizeSelector = 5;
    EXPECT_EQ(StillMode(3, screen), 4);
    screen.zoom = 2;
    EXPECT_EQ(StillMode(0, screen), 17);
}

TEST_F(StillRules, RequestCarriesModeQualityPathAndZeros) {
    settings.imageQuality = 0x102;
    ASSERT_TRUE(Fill(L"\\My Documents\\x0001.jpg"));
    EXPECT_EQ(request.mode, 1);
    EXPECT_EQ(request.quality, 2);
    EXPECT_EQ(std::u16string(request.path), u"\\My Documents\\x0001.jpg");
    EXPECT_EQ(request.path[100], 0);
    for (uint32_t word : request.reserved) EXPECT_EQ(word, 0u);
}

TEST_F(StillRules, SoundNeedsMovieSoundToo) {
    const struct {
        int32_t movie, camera;
        uint32_t module;
    } rows[] = {{0, 0, 0}, {0, 1, 0}, {1, 0, 0}, {1, 1, 0x12345678}, {5, -1, 0x12345678}};
    for (const auto& row : rows) {
        settings.recordWithAudio = row.movie;
        settings.cameraSound = row.camera;
        ASSERT_TRUE(Fill());
        EXPECT_EQ(request.soundModule, row.module);
    }
}

TEST_F(StillRules, AHundredCharactersFitAndNoMore) {
    EXPECT_TRUE(Fill(std::wstring(100, L'x')));
    EXPECT_EQ(request.path[99], u'x');
    EXPECT_EQ(request.path[100], 0);
    EXPECT_FALSE(Fill(std::wstring(101, L'x')));
}

}  // namespace
