#include "liveview/overlay_plan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "liveview/overlay_ids.h"
#include "resources/resource.h"

namespace {

class OverlayPlanTest : public testing::Test {
  protected:
    // "id@x,y" of each overlay, in drawing order.
    std::vector<std::string> Plan() {
        const OverlayPlan plan = PlanOverlays(settings, screen, recording);
        std::vector<std::string> items;
        for (uint32_t i = 0; i < plan.count; ++i)
            items.push_back(Item(plan.items[i].bitmap, plan.items[i].x, plan.items[i].y));
        return items;
    }
    static std::string Item(int bitmap, int x, int y) {
        return std::to_string(bitmap) + "@" + std::to_string(x) + "," + std::to_string(y);
    }

    CameraSettings settings;
    ScreenState screen;
    RecordingState recording;
};

TEST_F(OverlayPlanTest, StillAtRestShowsMarkModeAndCard) {
    EXPECT_EQ(Plan(), (std::vector{Item(IDB_CENTRE_MARK, 83, 73), Item(IDB_MODE_STILL, 23, 0),
                                   Item(IDB_MEMORY_CARD, 190, 18)}));
}

TEST_F(OverlayPlanTest, CardFrameReplacesTheMarkInStillModeOnly) {
    settings.businessCard = 1;
    settings.aviResolution = 0;
    EXPECT_EQ(Plan().front(), Item(IDB_CARD_FRAME_LARGE, 17, 26));
    settings.aviResolution = 1;
    EXPECT_EQ(Plan().front(), Item(IDB_CARD_FRAME_SMALL, 52, 46));
    screen.mode = CaptureMode::video;
    EXPECT_EQ(Plan().front(), Item(IDB_CENTRE_MARK, 83, 73));
}

TEST_F(OverlayPlanTest, IconsOnlyForSettingsThatHaveOne) {
    const size_t bare = Plan().size();
    for (int32_t awb : {0, 4, 77, -1}) {
        settings.awb = awb;
        EXPECT_EQ(Plan().size(), bare) << awb;
    }
    for (int32_t awb : {1, 2, 3}) {
        settings.awb = awb;
        EXPECT_EQ(Plan()[2], Item(IDB_WHITE_BALANCE + awb, 46, 0));
    }
    for (int32_t color : {1, 2}) {
        settings.color = color;
        EXPECT_EQ(Plan()[3], Item(IDB_COLOR + color, 69, 0));
    }
    settings.color = 3;
    EXPECT_EQ(Plan().size(), bare + 1);
}

TEST_F(OverlayPlanTest, ZoomDrawsScaleAndMark) {
    screen.zoom = 1;
    EXPECT_EQ(Plan()[3], Item(IDB_ZOOM, 137, 163));
    EXPECT_EQ(Plan()[4], Item(IDB_ZOOM_LEVEL, 190, 167));
    screen.zoom = 2;
    EXPECT_EQ(Plan()[4], Item(IDB_ZOOM_LEVEL, 226, 167));
}

TEST_F(OverlayPlanTest, SelfTimerShowsIdleOrDigitInStillMode) {
    settings.selfTimer = 2;
    EXPECT_EQ(Plan().back(), Item(IDB_SELF_TIMER_IDLE, 0, 40));
    screen.countdownRunning = true;
    screen.countdownDigit = 7;
    EXPECT_EQ(Plan().back(), Item(IDB_COUNTDOWN + 7, 0, 40));
    screen.mode = CaptureMode::video;
    EXPECT_EQ(Plan().back(), Item(IDB_RECORDING_IDLE, 2, 40));
}

TEST_F(OverlayPlanTest, RecordingIndicatorCyclesThroughThreePhases) {
    screen.mode = CaptureMode::video;
    recording.recording = true;
    for (int phase : {0, 1, 2, 0, 1}) EXPECT_EQ(Plan().back(), Item(IDB_RECORDING + phase, 2, 40));
    recording.recording = false;
    EXPECT_EQ(Plan().back(), Item(IDB_RECORDING_IDLE, 2, 40));
}

// What is not listed is not loaded, and the paint would silently leave it out.
TEST_F(OverlayPlanTest, WhatIsPlannedIsListed) {
    recording.recording = true;
    settings.selfTimer = 1;
    for (int32_t i = 0; i < 60; ++i) {
        settings.businessCard = i % 2;
        settings.aviResolution = i / 2 % 2;
        settings.awb = settings.color = i % 6;
        screen.zoom = static_cast<uint32_t>(i) % 3;
        screen.mode = i % 5 == 4 ? CaptureMode::video : CaptureMode::still;
        screen.countdownRunning = i > 6;
        screen.countdownDigit = static_cast<uint32_t>(i) % 11;
        const OverlayPlan plan = PlanOverlays(settings, screen, recording);
        for (uint32_t n = 0; n < plan.count; ++n) {
            const auto has = [&](const OverlayFamily& family) {
                return family.Has(plan.items[n].bitmap - static_cast<int32_t>(family.base));
            };
            EXPECT_TRUE(std::any_of(std::begin(kOverlayFamilies), std::end(kOverlayFamilies), has))
                << plan.items[n].bitmap;
        }
    }
}

TEST_F(OverlayPlanTest, ReviewTurnsTheLayoutRound) {
    EXPECT_TRUE(IsLargeLayout(0, false));
    EXPECT_FALSE(IsLargeLayout(1, false));
    EXPECT_FALSE(IsLargeLayout(0, true));
    EXPECT_TRUE(IsLargeLayout(1, true));
}

}  // namespace
