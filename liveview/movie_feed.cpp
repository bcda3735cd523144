#include "liveview/movie_feed.h"

namespace {

constexpr uint32_t kLeastLargeFrame = 2048;  // a 320x240 frame below this holds no picture worth keeping

}  // namespace

FeedResult FeedMovie(RecordingState& recording, StoreRoom& room, const CameraSettings& settings,
                     const ScreenState& screen, const uint8_t* frame, uint32_t bytes) {
    if (settings.aviResolution == 0 && bytes < kLeastLargeFrame) return FeedResult::nothing;
    FeedResult result = FeedResult::nothing;
    uint32_t aborted = 1;
    if (recording.writerAborted.compare_exchange_strong(aborted, 2)) {  // moved on: reported once
        recording.feedingOpen = false;
        result = FeedResult::stopRequested;
    } else if (aborted == 0) {
        recording.feedingOpen = true;
    }
    if (!recording.feedingOpen || screen.mode != CaptureMode::video || recording.movieQueue == nullptr)
        return result;
    if (VideoSecondsIn(FreeBytes(room), settings.aviResolution) == 0) {
        recording.recording = true;  // so that the toggle that follows stops, whatever the state was
        return FeedResult::stopRequested;
    }
    if (!recording.movieQueue->Append(ChunkTag::video, frame, bytes)) {
        ++recording.writerAborted;
        return result;
    }
    return FeedResult::queued;
}
