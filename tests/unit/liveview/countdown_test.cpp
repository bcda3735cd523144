#include "liveview/countdown.h"

#include <gtest/gtest.h>

namespace {

TEST(Countdown, BandsHoldTheirDigit) {
    constexpr uint32_t kOther = 77;
    EXPECT_EQ(CountdownDigit(0, kOther), 10u);
    EXPECT_EQ(CountdownDigit(999, kOther), 10u);
    for (uint32_t k = 1; k <= 10; ++k) {
        EXPECT_EQ(CountdownDigit(k * 1000 + 1, kOther), 10 - k);
        EXPECT_EQ(CountdownDigit(k * 1000 + 999, kOther), 10 - k);
    }
}

TEST(Countdown, WholeSecondKeepsDigit) {
    for (uint32_t k = 1; k <= 11; ++k) EXPECT_EQ(CountdownDigit(k * 1000, 77), 77u) << k;
}

TEST(Countdown, FiresOnceBeyondElevenSeconds) {
    ScreenState screen;
    screen.countdownRunning = true;
    screen.countdownStart = 5000;
    EXPECT_EQ(AdvanceCountdown(screen, 16000, 2), CountdownStep::waiting);
    EXPECT_EQ(AdvanceCountdown(screen, 16001, 2), CountdownStep::fire);
    EXPECT_FALSE(screen.countdownRunning);
    EXPECT_EQ(AdvanceCountdown(screen, 16002, 2), CountdownStep::waiting);
}

TEST(Countdown, ShortTimerRunsEightSecondsAhead) {
    ScreenState screen;
    screen.countdownRunning = true;
    screen.countdownStart = 5000;
    EXPECT_EQ(AdvanceCountdown(screen, 5500, 1), CountdownStep::waiting);
    EXPECT_EQ(screen.countdownDigit, 2u);
    EXPECT_EQ(AdvanceCountdown(screen, 8000, 1), CountdownStep::waiting);
    EXPECT_EQ(AdvanceCountdown(screen, 8001, 1), CountdownStep::fire);
}

TEST(Countdown, SurvivesTheTickCountsWrap) {
    ScreenState screen;
    screen.countdownRunning = true;
    screen.countdownStart = 0xFFFFFF00;
    EXPECT_EQ(AdvanceCountdown(screen, 10900, 2), CountdownStep::fire);
}

TEST(Countdown, IdleNeverFires) {
    ScreenState screen;
    EXPECT_EQ(AdvanceCountdown(screen, 1u << 30, 2), CountdownStep::waiting);
}

}  // namespace
