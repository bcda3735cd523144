#include "device/watchdog.h"

#include <gtest/gtest.h>

#include "fakes/driver_fake.h"

namespace {

using Calls = std::vector<std::string>;

class Watchdog : public testing::Test {
  protected:
    void SetUp() override {
        OpenCamera(device);
        StartPreview(device, 4);
        driver.calls.clear();
    }
    DriverFake& driver = ResetDriverFake();
    CameraDevice device;
};

TEST_F(Watchdog, RestsWhileNothingStreams) {
    StopPreview(device);
    driver.calls.clear();
    device.activity = 3;
    EXPECT_EQ(TickWatchdog(device, 0, 0), AfterTick::baseHandling);
    EXPECT_EQ(device.activity, 3u);
    EXPECT_TRUE(driver.calls.empty());
}

TEST_F(Watchdog, AFrameSinceTheLastTickPreventsReopening) {
    device.activity = 1;
    EXPECT_EQ(TickWatchdog(device, 0, 0), AfterTick::baseHandling);
    EXPECT_TRUE(driver.calls.empty());
    EXPECT_EQ(device.activity, 0u);
}

TEST_F(Watchdog, TheStartValueSparesTheFirstTick) {
    device.activity = kActivityAtStart;
    TickWatchdog(device, 0, 0);
    EXPECT_TRUE(driver.calls.empty());
}

TEST_F(Watchdog, ReopensExclusively) {
    device.failures = 1;
    EXPECT_EQ(TickWatchdog(device, 1, 2), AfterTick::baseHandling);
    EXPECT_EQ(driver.calls, (Calls{"close", "open share=0", "control 80000027 in=0", "pause 25",
                                   "control 80000017 in=0", "control 8000000F in=21"}));
    EXPECT_EQ(device.failures, 0);
    EXPECT_TRUE(device.streaming);
}

TEST_F(Watchdog, AResolutionOutsideTheTableIsReopenedWithoutAStream) {
    TickWatchdog(device, 9, 0);
    EXPECT_EQ(driver.calls.back(), "control 80000017 in=0");
    EXPECT_FALSE(device.streaming);
}

TEST_F(Watchdog, SecondFailureClosesTheScreenOnce) {
    driver.cardPresent = false;
    EXPECT_EQ(TickWatchdog(device, 0, 0), AfterTick::nothing);
    EXPECT_EQ(driver.calls, (Calls{"close", "open share=0"}));
    TickWatchdog(device, 0, 0);
    EXPECT_EQ(driver.calls, (Calls{"close", "open share=0", "open share=0", "post close"}));
    TickWatchdog(device, 0, 0);
    EXPECT_EQ(driver.calls.back(), "open share=0");
}

TEST_F(Watchdog, FailuresInARowOnlyCount) {
    driver.cardPresent = false;
    TickWatchdog(device, 0, 0);
    driver.cardPresent = true;
    TickWatchdog(device, 0, 0);
    driver.cardPresent = false;
    TickWatchdog(device, 0, 0);
    EXPECT_EQ(device.failures, 1);
    for (const std::string& call : driver.calls) EXPECT_NE(call, "post close");
}

}  // namespace
