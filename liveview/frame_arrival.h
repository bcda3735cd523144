// From the driver's announcement to a decoded picture.  Portable.
#pragma once
#include <cstdint>

#include "app/screen_state.h"
#include "capture/decoded_image.h"
#include "capture/recording_state.h"
#include "capture/store_space.h"
#include "device/camera_device.h"
#include "device/frame_buffer.h"
#include "framework/profile.h"
#include "jpeg/decoder.h"
#include "settings/camera_settings.h"

// The records that the live view works on.
struct LiveView {
    CameraSettings& settings;
    const Profile& profile;
    ScreenState& screen;
    CameraDevice& device;
    FrameBuffer& frame;
    DecoderContext& decoder;
    DecodedImage& image;
    RecordingState& recording;
    StoreRoom room = {};  // asked once for each frame, by the movie or by the paint
};

struct FrameOutcome {
    bool repaint = false;        // there is something new to show
    bool stopRecording = false;  // the movie has to end
};

// Reads the announced frame, decodes it and offers it to the movie.
FrameOutcome ReceiveFrame(LiveView& view);
