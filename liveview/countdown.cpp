#include "liveview/countdown.h"

uint32_t CountdownDigit(uint32_t elapsed, uint32_t previous) {
    if (elapsed == 0) return 10;
    // A whole second falls between two bands, so the digit stays for that frame: at most one frame late.
    // (Countdown.WholeSecondKeepsDigit)
    if (elapsed % 1000 == 0 || elapsed > kCountdownEnd) return previous;
    return 10 - elapsed / 1000;
}

CountdownStep AdvanceCountdown(ScreenState& screen, uint32_t now, int32_t selfTimer) {
    if (!screen.countdownRunning) return CountdownStep::waiting;
    const uint32_t elapsed = CountdownElapsed(now, screen.countdownStart, selfTimer);
    screen.countdownDigit = CountdownDigit(elapsed, screen.countdownDigit);
    if (elapsed <= kCountdownEnd) return CountdownStep::waiting;
    screen.countdownRunning = false;
    return CountdownStep::fire;
}
