#include "liveview/overlay_plan.h"

#include "liveview/overlay_ids.h"

namespace {

// Values outside the family show nothing.
void AddMember(OverlayPlan& plan, const OverlayFamily& family, int32_t value, int x, int y) {
    if (family.Has(value)) plan.Add(family.Id(value), x, y);
}

void AddFraming(OverlayPlan& plan, const CameraSettings& settings, const ScreenState& screen) {
    if (screen.mode == CaptureMode::video || settings.businessCard == 0)
        plan.Add(IDB_CENTRE_MARK, 83, 73);
    else if (settings.aviResolution == 1)
        plan.Add(IDB_CARD_FRAME_SMALL, 52, 46);
    else
        plan.Add(IDB_CARD_FRAME_LARGE, 17, 26);
}

// Icons of the top row.
void AddSettingIcons(OverlayPlan& plan, const CameraSettings& settings, const ScreenState& screen) {
    plan.Add(screen.mode == CaptureMode::video ? IDB_MODE_VIDEO : IDB_MODE_STILL, 23, 0);
    AddMember(plan, kWhiteBalanceIcons, settings.awb, 46, 0);
    AddMember(plan, kColorIcons, settings.color, 69, 0);
    plan.Add(IDB_MEMORY_CARD, 190, 18);
}

void AddZoom(OverlayPlan& plan, const ScreenState& screen) {
    if (screen.zoom == 0) return;
    plan.Add(IDB_ZOOM, 137, 163);
    plan.Add(IDB_ZOOM_LEVEL, screen.zoom == 1 ? 190 : 226, 167);
}

void AddSelfTimer(OverlayPlan& plan, const CameraSettings& settings, const ScreenState& screen) {
    if (settings.selfTimer == 0 || screen.mode != CaptureMode::still) return;
    plan.Add(screen.countdownRunning ? IDB_COUNTDOWN + screen.countdownDigit : IDB_SELF_TIMER_IDLE, 0, 40);
}

void AddRecording(OverlayPlan& plan, const ScreenState& screen, RecordingState& recording) {
    if (screen.mode != CaptureMode::video) return;
    uint32_t bitmap = IDB_RECORDING_IDLE;
    if (recording.recording) {
        bitmap = IDB_RECORDING + recording.indicatorPhase;
        recording.indicatorPhase = (recording.indicatorPhase + 1) % kRecordingPhases.Size();
    }
    plan.Add(bitmap, 2, 40);
}

}  // namespace

OverlayPlan PlanOverlays(const CameraSettings& settings, const ScreenState& screen,
                         RecordingState& recording) {
    OverlayPlan plan;
    AddFraming(plan, settings, screen);
    AddSettingIcons(plan, settings, screen);
    AddZoom(plan, screen);
    AddSelfTimer(plan, settings, screen);
    AddRecording(plan, screen, recording);
    return plan;
}
