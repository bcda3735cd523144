// A driver link that records every call and answers as the test says.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "device/driver_link.h"

struct DriverFake {
    std::vector<std::string> calls;     // "open share=3", "close", "control 8000000F in=4", "pause 25", "post close"
    bool cardPresent = true;
    bool acceptControls = true;
    std::vector<uint8_t> frame;         // scan data that the next read returns
    uint32_t reportedLength = UINT32_MAX;  // overrides the frame's length when set
    const void* lastInput = nullptr;
    std::vector<uint8_t> lastInputBytes;  // only for calls whose input size is the buffer's size
};

// Starts afresh; the link's functions use this one instance.
DriverFake& ResetDriverFake();

// Adds a call of another fake, so that one list shows the order of everything.
void RecordCall(const std::string& call);
