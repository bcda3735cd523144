#include "fakes/capture_fake.h"

#include <cstring>
#include <string>

#include "capture/capture_effects.h"
#include "fakes/driver_fake.h"

namespace {

CaptureFake g_fake;

}  // namespace

CaptureFake& ResetCaptureFake() {
    g_fake = {};
    return g_fake;
}

void ShowCaptureMessage(CaptureMessage message) {
    RecordCall(message == CaptureMessage::noSpace ? "message no space" : "message path too long");
}

void EnableCaptureMenus(bool enabled) { RecordCall(enabled ? "menus on" : "menus off"); }

void StartReviewTimer(std::atomic<bool>&, uint32_t milliseconds) {
    g_fake.reviewMilliseconds = milliseconds;
    RecordCall("review " + std::to_string(milliseconds));
}

void StopReviewTimer() { RecordCall("end review"); }

bool ReadReviewFile(const std::wstring&, uint8_t* room, uint32_t capacity, uint32_t& bytes) {
    RecordCall("read review file");
    bytes = static_cast<uint32_t>(g_fake.reviewFile.size());
    if (bytes == 0 || bytes > capacity) return false;
    std::memcpy(room, g_fake.reviewFile.data(), bytes);
    return true;
}

void PaintLiveView() { RecordCall("paint"); }

uint32_t SoundModule() { return g_fake.module; }
