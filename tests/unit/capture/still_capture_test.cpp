#include "capture/still_capture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>

#include "fakes/capture_fake.h"
#include "fakes/store_fake.h"
#include "settings/settings_keys.h"
#include "support/picture_encoder.h"
#include "support/still_fixture.h"

namespace {

using Calls = std::vector<std::string>;

class StillCaptureTest : public StillFixture {
  protected:
    void SetUp() override {
        profile.key = L"\\Test";
        settings.aviResolution = 0;
        settings.instantReview = 0;
    }

    CaptureFake& effects = ResetCaptureFake();
    StoreFake& store = ResetStoreFake();
};

TEST_F(StillCaptureTest, StepsComeInOrder) {
    EXPECT_EQ(Take(), 0u);
    EXPECT_EQ(driver.calls,
              (Calls{"end review", "menus off", "control 80000017 in=0", "control 80000007 in=220",
                     "control 8000000F in=4", "pause 25", "menus on"}));
    EXPECT_EQ(settings.jpgNo, 2);
    EXPECT_EQ(ReadProfileInt(profile, kSettingsSection, kKeyPictureNumber, -1), 2);
    EXPECT_EQ(screen.picturesTaken, 1u);
    EXPECT_FALSE(screen.captureInProgress);
}

TEST_F(StillCaptureTest, NothingHappensWithoutACard) {
    CloseCamera(device);
    driver.calls.clear();
    EXPECT_EQ(Take(), 1u);
    EXPECT_TRUE(driver.calls.empty());
    EXPECT_EQ(settings.jpgNo, 1);
}

TEST_F(StillCaptureTest, OnePictureLeftIsTooFew) {
    store.freeBytes = 2097152 + 75 * 1024 * 2;
    EXPECT_EQ(Take(), 0u);
    EXPECT_EQ(driver.calls, (Calls{"message no space"}));
    EXPECT_EQ(Press(), ShutterResult::noSpace);
    store.freeBytes += 75 * 1024 * 2;
    Take();
    EXPECT_EQ(settings.jpgNo, 2);
}

TEST_F(StillCaptureTest, APathThatDoesNotFitIsToldAndNothingTaken) {
    settings.filenamePrefix.assign(90, L'p');
    EXPECT_EQ(Take(), 0u);
    EXPECT_EQ(driver.calls, (Calls{"message path too long"}));
    EXPECT_EQ(settings.jpgNo, 1);
}

TEST_F(StillCaptureTest, NumberNineThousand999IsFollowedByOne) {
    settings.jpgNo = 9999;
    Take();
    EXPECT_EQ(settings.jpgNo, 1);
}

TEST_F(StillCaptureTest, TheCounterAdvancesThoughTheDriverRefuses) {
    driver.acceptControls = false;
    Take();
    EXPECT_EQ(settings.jpgNo, 2);
}

TEST_F(StillCaptureTest, ThePreviewComesBackAsResolutionAndZoomSay) {
    screen.zoom = 2;
    settings.aviResolution = 1;
    Take();
    EXPECT_EQ(device.lastMode, 21u);
}

TEST_F(StillCaptureTest, UnknownResolutionRestartsTheSmallStream) {
    settings.aviResolution = 9;
    Take();
    EXPECT_EQ(device.lastMode, 6u);
}

TEST_F(StillCaptureTest, ReviewShowsThePictureForTwoSecondsAStep) {
    settings.instantReview = 3;
    effects.reviewFile = {0xFF, 0xD8, 0xFF, 0xD9};
    Take();
    EXPECT_TRUE(screen.reviewShowing);
    EXPECT_TRUE(review->ready);
    EXPECT_EQ(driver.calls, (Calls{"end review", "menus off", "control 80000017 in=0",
                                   "control 80000007 in=220", "control 8000000F in=4", "read review file",
                                   "paint", "pause 25", "review 6000", "menus on"}));
}

// A picture taken during the review of another one: the first review's time must not end the second's.
TEST_F(StillCaptureTest, TheReviewBeforeEndsFirst) {
    settings.instantReview = 1;
    screen.reviewShowing = true;
    Take();
    EXPECT_EQ(driver.calls.front(), "end review");
    EXPECT_TRUE(screen.reviewShowing);
}

TEST_F(StillCaptureTest, WildReviewTimesStayDefined) {
    const struct {
        int32_t setting;
        uint32_t milliseconds;
    } rows[] = {
        {-1, 0}, {INT32_MIN, 0}, {2147483, 4294966000}, {2147484, 4294966000}, {INT32_MAX, 4294966000}};
    for (const auto& row : rows) {
        settings.instantReview = row.setting;
        Take();
        EXPECT_EQ(effects.reviewMilliseconds, row.milliseconds) << row.setting;
    }
}

TEST_F(StillCaptureTest, SmallModesPauseLongerBeforeTheReview) {
    settings.instantReview = 1;
    settings.resolution = 3;
    Take();
    EXPECT_NE(std::find(driver.calls.begin(), driver.calls.end(), "pause 100"), driver.calls.end());
}

TEST_F(StillCaptureTest, AMissingReviewFileStillRunsTheReview) {
    settings.instantReview = 1;
    Take();
    EXPECT_TRUE(screen.reviewShowing);
    EXPECT_EQ(effects.reviewMilliseconds, 2000u);
    EXPECT_EQ(std::find(driver.calls.begin(), driver.calls.end(), "paint"), driver.calls.end());
}

TEST_F(StillCaptureTest, AnUndecodableReviewFileShowsNothing) {
    settings.instantReview = 1;
    effects.reviewFile.assign(500, 0x55);
    EXPECT_EQ(LoadReviewPicture(capture, L"\\x.jpg", 9), 1u);
    EXPECT_TRUE(review->ready);
}

TEST_F(StillCaptureTest, ACutReviewFileLeavesThePictureAsItIs) {
    const Bytes whole = encodePicture(makePicture(320, 240, 1), {});
    std::memset(image->pixels, 0xA5, sizeof(image->pixels));
    effects.reviewFile.assign(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(whole.size() * 3 / 4));
    EXPECT_EQ(LoadReviewPicture(capture, L"\\x.jpg", 9), 1u);
    EXPECT_TRUE(std::all_of(std::begin(image->pixels), std::end(image->pixels),
                            [](uint8_t byte) { return byte == 0xA5; }));
    effects.reviewFile.assign(whole.begin(), whole.end());
    EXPECT_EQ(LoadReviewPicture(capture, L"\\x.jpg", 9), 0u);
    EXPECT_NE(image->pixels[0], 0xA5);
}

TEST_F(StillCaptureTest, TheShutterIsIgnoredDuringTheReview) {
    screen.reviewShowing = true;
    EXPECT_EQ(Press(), ShutterResult::ignored);
    EXPECT_TRUE(driver.calls.empty());
}

TEST_F(StillCaptureTest, TheSelfTimerStartsAtTwoOrTen) {
    settings.selfTimer = 1;
    EXPECT_EQ(Press(1234), ShutterResult::countdownStarted);
    EXPECT_EQ(screen.countdownDigit, 2u);
    EXPECT_EQ(screen.countdownStart, 1234u);
    EXPECT_TRUE(screen.countdownRunning);
    settings.selfTimer = 2;
    Press();
    EXPECT_EQ(screen.countdownDigit, 10u);
    EXPECT_TRUE(driver.calls.empty());
}

TEST_F(StillCaptureTest, ThePressTakesThePictureAtOnceWithoutATimer) {
    EXPECT_EQ(Press(), ShutterResult::taken);
    EXPECT_EQ(settings.jpgNo, 2);
}

}  // namespace
