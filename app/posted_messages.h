// Messages that threads post to the camera screen.  Portable leaf header.
#pragma once
#include <cstdint>

inline constexpr uint32_t kMsgSelfTimerFire = 0x0400 + 20;  // take the picture now
inline constexpr uint32_t kMsgClockTick = 0x0400 + 21;      // a second of recording went by
inline constexpr uint32_t kMsgStopRecording = 0x0400 + 30;  // the live view asks for an end
