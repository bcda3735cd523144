#include "liveview/frame_arrival.h"

#include <cstring>

#include "capture/picture_decode.h"
#include "liveview/movie_feed.h"

namespace {

bool IsReviewing(const LiveView& view) { return view.screen.reviewShowing && view.settings.instantReview != 0; }

void SetFeedback(CameraDevice& device, const uint8_t* statistics) {
    if (statistics != nullptr)
        std::memcpy(device.feedback, statistics, sizeof(device.feedback));
    else
        std::memset(device.feedback, 0, sizeof(device.feedback));
}

}  // namespace

FrameOutcome ReceiveFrame(LiveView& view) {
    FrameOutcome outcome;
    view.room.asked = false;
    const uint32_t length = ReadFrame(view.device, view.frame.scan);
    if (IsReviewing(view)) {  // the card keeps draining, the review picture stays
        outcome.repaint = true;
        return outcome;
    }
    if (!IsFrameLength(length)) return outcome;
    const auto* const jpeg = reinterpret_cast<const uint8_t*>(&view.frame);
    const uint32_t bytes = length + kPreviewHeaderBytes;
    outcome.repaint = DecodePicture(view.decoder, jpeg, bytes, view.screen.scaleCode, view.image) == 0;
    SetFeedback(view.device, outcome.repaint ? view.decoder.frameStats : nullptr);
    outcome.stopRecording = FeedMovie(view.recording, view.room, view.settings, view.screen, jpeg, bytes) ==
                            FeedResult::stopRequested;
    return outcome;
}
