// Which stream the card sends, and which header and decoder scale go with it.  Portable.
#pragma once
#include <cstdint>

#include "device/frame_buffer.h"

// Mode code for StartPreview, 0 when the pair has none (video resolution 0..1, zoom 0..2).
constexpr uint32_t PreviewMode(int32_t videoResolution, uint32_t zoom) {
    constexpr uint32_t kModes[2][3] = {{4, 9, 17}, {6, 20, 21}};
    return (videoResolution == 0 || videoResolution == 1) && zoom < 3 ? kModes[videoResolution][zoom] : 0;
}

inline constexpr int32_t kScaleLarge = 9;   // decoder mode: 240x180, 24-bit
inline constexpr int32_t kScaleSmall = 10;  // decoder mode: 160x120, 24-bit

// Copies the header template for the video resolution and zoom to the frame buffer and sets the scale code.
// Another video resolution than 0 or 1 changes neither.
void SelectPreviewHeader(FrameBuffer& frame, int32_t& scaleCode, int32_t videoResolution, uint32_t zoom);
