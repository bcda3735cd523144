// From the shutter to the numbered picture file.  Portable.
#pragma once
#include <cstdint>
#include <string>

#include "app/screen_state.h"
#include "capture/decoded_image.h"
#include "device/camera_device.h"
#include "framework/profile.h"
#include "jpeg/decoder.h"
#include "settings/camera_settings.h"

// A saved picture on its way to the review; longer files are not shown.
struct ReviewBuffer {
    static constexpr uint32_t kBytes = 768008;
    uint8_t bytes[kBytes];
    bool ready = true;     // false while a picture is being loaded
    DecodedImage picture;  // being decoded; damage must not reach the picture on the screen
};

// The records that still capture works on.
struct StillCapture {
    CameraSettings& settings;
    const Profile& profile;
    ScreenState& screen;
    CameraDevice& device;
    DecoderContext& decoder;
    DecodedImage& image;
    ReviewBuffer& review;
};

// Takes one picture.  0 when a capture was attempted or refused for want of room, 1 when the card is not open.
uint32_t TakeSnapshot(StillCapture& capture, int32_t resolution);

// The shutter in Still mode: starts the countdown or takes the picture.
enum class ShutterResult { ignored, noSpace, countdownStarted, taken };
ShutterResult PressShutter(StillCapture& capture, uint32_t now);

// Decodes a saved picture for the live view; 0 on success, 1 when it cannot be read or decoded: nothing changes then.
uint32_t LoadReviewPicture(StillCapture& capture, const std::wstring& path, int32_t scaleCode);
