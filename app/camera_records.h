// Every process-wide record of the program, with the views of them that parts of it work on.
#pragma once
#include "app/screen_state.h"
#include "app/text_lookup.h"
#include "capture/recording_state.h"
#include "capture/still_capture.h"
#include "liveview/frame_arrival.h"

struct CameraRecords {
    CameraSettings settings;
    TextLookup texts;
    ScreenState screen;
    CameraDevice device;
    FrameBuffer frame;
    DecoderContext decoder;
    DecodedImage image;
    ReviewBuffer review;
    RecordingState recording;
};
