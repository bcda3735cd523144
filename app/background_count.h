// How long the program has been in the background.  Portable.
#pragma once
#include <cstdint>

inline constexpr uint32_t kBackgroundPeriod = 2000;  // milliseconds between two checks
inline constexpr uint8_t kBackgroundLimit = 60;      // checks in a row

struct BackgroundCount {
    uint8_t checks = 0;

    // One check.  True when the limit is reached.
    bool Check(bool inForeground) {
        checks = inForeground ? 0 : static_cast<uint8_t>(checks + 1);
        return checks == kBackgroundLimit;
    }
};
