// The three text readouts of the live view.  Portable.
#pragma once
#include <cstdint>

#include "app/screen_state.h"
#include "settings/camera_settings.h"

// Frame rate shown for two paints this many milliseconds apart: one more than the whole frames per second.
// Two paints within one millisecond count as one apart.
constexpr uint32_t FrameRate(uint32_t milliseconds) { return 1000 / (milliseconds == 0 ? 1 : milliseconds) + 1; }

// Text of the resolution readout; empty for values outside the tables.
const wchar_t* ResolutionText(const CameraSettings& settings, const ScreenState& screen);

// Fewer pictures left than this are shown in red.
inline constexpr uint32_t kFewPictures = 5;
