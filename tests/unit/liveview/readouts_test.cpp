#include "liveview/readouts.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Readouts, RateIsOneMoreThanWholeFramesPerSecond) {
    EXPECT_EQ(FrameRate(250), 5u);
    EXPECT_EQ(FrameRate(66), 16u);
    EXPECT_EQ(FrameRate(1001), 1u);
}

TEST(Readouts, PaintsWithinOneMillisecondCountAsOneApart) { EXPECT_EQ(FrameRate(0), FrameRate(1)); }

std::wstring Text(CaptureMode mode, uint32_t zoom, int32_t resolution, int32_t session, int32_t avi) {
    CameraSettings settings;
    ScreenState screen;
    screen.mode = mode;
    screen.zoom = zoom;
    settings.resolution = resolution;
    settings.sessionResolution = session;
    settings.aviResolution = avi;
    return ResolutionText(settings, screen);
}

TEST(Readouts, StillResolutionAtZoomZeroIsTheSetting) {
    const wchar_t* texts[] = {L"1280x1024", L"1280x960", L"640x480", L"320x240"};
    for (int32_t i = 0; i < 4; ++i) EXPECT_EQ(Text(CaptureMode::still, 0, i, 0, 0), texts[i]);
    EXPECT_EQ(Text(CaptureMode::still, 0, 4, 0, 0), L"");
    EXPECT_EQ(Text(CaptureMode::still, 0, -1, 0, 0), L"");
}

TEST(Readouts, ZoomedResolutionIsTheRunsOwn) {
    EXPECT_EQ(Text(CaptureMode::still, 1, 0, 2, 0), L"640x480");
    EXPECT_EQ(Text(CaptureMode::still, 1, 0, 3, 0), L"320x240");
    EXPECT_EQ(Text(CaptureMode::still, 2, 0, 2, 0), L"320x240");
}

TEST(Readouts, VideoShowsTheMovieSize) {
    EXPECT_EQ(Text(CaptureMode::video, 0, 0, 0, 0), L"320x240");
    EXPECT_EQ(Text(CaptureMode::video, 2, 0, 0, 1), L"160x120");
}

}  // namespace
