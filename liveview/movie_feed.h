// What becomes of a decoded frame while a movie is recorded.  Portable.
#pragma once
#include <cstdint>

#include "app/screen_state.h"
#include "capture/recording_state.h"
#include "capture/store_space.h"
#include "settings/camera_settings.h"

enum class FeedResult { nothing, queued, stopRequested };

// Offers one frame, header and data, to the movie.  stopRequested: the caller posts kMsgStopRecording.
FeedResult FeedMovie(RecordingState& recording, StoreRoom& room, const CameraSettings& settings,
                     const ScreenState& screen, const uint8_t* frame, uint32_t bytes);
