// Reading the record that asks for a still picture.
#pragma once
#include <cstdint>
#include <string>

#include "device/control_codes.h"

namespace sio {

// Copies the record; false when the buffer is missing or too small.
bool readStillRequest(const uint8_t* data, uint32_t size, StillRequest& request);

// The path up to its terminator, or all of it when none is there.
std::u16string stillPath(const StillRequest& request);

// True when the path is terminated and not empty.
bool hasUsablePath(const StillRequest& request);

}  // namespace sio
