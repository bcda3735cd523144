// Capture effects that only record what they were asked for, into the driver fake's list of calls.
#pragma once
#include <cstdint>
#include <vector>

struct CaptureFake {
    std::vector<uint8_t> reviewFile;  // what the saved picture holds; empty: there is none
    uint32_t reviewMilliseconds = 0;
    uint32_t module = 0x00400000;
};

CaptureFake& ResetCaptureFake();
