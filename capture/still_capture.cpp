#include "capture/still_capture.h"

#include <algorithm>

#include "capture/capture_effects.h"
#include "capture/file_names.h"
#include "capture/picture_decode.h"
#include "capture/still_rules.h"
#include "capture/store_space.h"
#include "device/preview_mode.h"
#include "settings/counters.h"

namespace {

constexpr uint32_t kReviewUnit = 2000;  // milliseconds of review per step of the setting
constexpr uint32_t kPauseSmall = 100;   // milliseconds after a reviewed picture of the small modes
constexpr uint32_t kPauseOther = 25;

// A setting below 0 lasts no time, one beyond counting the longest that can be counted.
constexpr uint32_t ReviewMilliseconds(int32_t instantReview) {
    return std::min<uint32_t>(std::max(instantReview, 0), UINT32_MAX / kReviewUnit) * kReviewUnit;
}

constexpr bool IsSmallMode(uint8_t mode) { return mode == 4 || mode == 8 || mode == 17; }

// Unlike everywhere else, a video resolution outside the table restarts the small stream.
// Only a profile edited by hand shows it.  (StillCaptureTest.UnknownResolutionRestartsTheSmallStream)
void RestartAfterCapture(StillCapture& capture) {
    const uint32_t mode = PreviewMode(capture.settings.aviResolution, capture.screen.zoom);
    StartPreview(capture.device, mode != 0 ? mode : 6);
}

void Review(StillCapture& capture, const std::wstring& path, uint8_t stillMode) {
    if (capture.settings.instantReview == 0) {
        PauseMilliseconds(kPauseOther);
        return;
    }
    // A file that cannot be shown leaves the last live picture standing for the same time.
    // (StillCaptureTest.AMissingReviewFileStillRunsTheReview)
    capture.screen.reviewShowing = true;
    LoadReviewPicture(capture, path, capture.screen.scaleCode);
    PauseMilliseconds(IsSmallMode(stillMode) ? kPauseSmall : kPauseOther);
    StartReviewTimer(capture.screen.reviewShowing, ReviewMilliseconds(capture.settings.instantReview));
}

}  // namespace

uint32_t TakeSnapshot(StillCapture& capture, int32_t resolution) {
    if (!IsOpen(capture.device)) return 1;
    if (PicturesLeft(capture.settings, capture.screen) <= 1) {
        ShowCaptureMessage(CaptureMessage::noSpace);
        return 0;
    }
    const std::wstring path = PicturePath(capture.settings, capture.settings.jpgNo);
    StillRequest request;
    if (!FillStillRequest(request, capture.settings, capture.screen, resolution, path, SoundModule())) {
        ShowCaptureMessage(CaptureMessage::pathTooLong);
        return 0;
    }
    StopReviewTimer();
    capture.screen.reviewShowing = false;
    capture.screen.captureInProgress = true;
    EnableCaptureMenus(false);
    StopPreview(capture.device);
    // The number is used up although the card may have refused: gaps are better than a name given twice.
    // (CaptureNumber.AdvancesThoughTheCardRefuses)
    CaptureStill(capture.device, request);
    StorePictureNumber(capture.settings, capture.profile, NextNumber(capture.settings.jpgNo));
    ++capture.screen.picturesTaken;
    RestartAfterCapture(capture);
    Review(capture, path, request.mode);
    capture.screen.captureInProgress = false;
    EnableCaptureMenus(true);
    return 0;
}

ShutterResult PressShutter(StillCapture& capture, uint32_t now) {
    if (capture.screen.reviewShowing) return ShutterResult::ignored;
    if (PicturesLeft(capture.settings, capture.screen) < 2) return ShutterResult::noSpace;
    if (capture.settings.selfTimer != 0) {
        capture.screen.countdownDigit = capture.settings.selfTimer == 1 ? 2 : 10;
        capture.screen.countdownStart = now;
        capture.screen.countdownRunning = true;
        return ShutterResult::countdownStarted;
    }
    while (capture.screen.captureInProgress) PauseMilliseconds(kPauseOther);
    TakeSnapshot(capture, capture.settings.resolution);
    return ShutterResult::taken;
}

uint32_t LoadReviewPicture(StillCapture& capture, const std::wstring& path, int32_t scaleCode) {
    uint32_t bytes = 0;
    capture.review.ready = false;
    const bool loaded = ReadReviewFile(path, capture.review.bytes, ReviewBuffer::kBytes, bytes) &&
                        DecodePicture(capture.decoder, capture.review.bytes, bytes, scaleCode, capture.review.picture) == 0;
    capture.review.ready = true;
    if (!loaded) return 1;
    capture.image = capture.review.picture;
    PaintLiveView();
    return 0;
}
