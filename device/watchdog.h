// Reopens the card when frames stop arriving, and gives up after two failures.  Portable.
#pragma once
#include <cstdint>

#include "device/camera_device.h"

inline constexpr uint32_t kWatchdogTimer = 10;
inline constexpr uint32_t kWatchdogPeriod = 600;  // milliseconds
inline constexpr uint32_t kActivityAtStart = 10;  // spares the link on the first tick

enum class AfterTick { baseHandling, nothing };

// One timer tick.  On the second failed reopen in a row the event window is asked to close.
AfterTick TickWatchdog(CameraDevice& device, int32_t videoResolution, uint32_t zoom);
