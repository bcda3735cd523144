// The self-timer's digits.  Portable.
#pragma once
#include <cstdint>

#include "app/screen_state.h"

inline constexpr uint32_t kCountdownEnd = 11000;     // milliseconds; beyond it the picture is taken
inline constexpr uint32_t kShortTimerAhead = 8000;   // the short timer's clock starts this far ahead

// Milliseconds on the countdown's clock.
constexpr uint32_t CountdownElapsed(uint32_t now, uint32_t start, int32_t selfTimer) {
    return now + (selfTimer == 1 ? kShortTimerAhead : 0) - start;
}

// The digit to show; keeps the previous one between the bands.
uint32_t CountdownDigit(uint32_t elapsed, uint32_t previous);

enum class CountdownStep { waiting, fire };

// Advances a running countdown; `fire` marks it not running, once.
CountdownStep AdvanceCountdown(ScreenState& screen, uint32_t now, int32_t selfTimer);
