// Which overlay bitmaps a paint draws, and where on the 240x180 canvas.  Portable.
#pragma once
#include <cstdint>

#include "app/screen_state.h"
#include "capture/recording_state.h"
#include "settings/camera_settings.h"

inline constexpr int kCanvasWidth = 240;
inline constexpr int kCanvasHeight = 180;
inline constexpr int kSmallLeft = 40;  // the 160x120 picture on the background
inline constexpr int kSmallTop = 28;
inline constexpr int kSmallWidth = 160;
inline constexpr int kSmallHeight = 120;

struct Overlay {
    uint16_t bitmap;  // resource id
    int16_t x, y;
};

struct OverlayPlan {
    static constexpr uint32_t kMost = 12;
    Overlay items[kMost];
    uint32_t count = 0;

    void Add(uint32_t bitmap, int x, int y) {
        items[count++] = {static_cast<uint16_t>(bitmap), static_cast<int16_t>(x), static_cast<int16_t>(y)};
    }
};

// The picture covers the canvas, or stands small on the background.  Review turns the two round.
constexpr bool IsLargeLayout(int32_t aviResolution, bool review) { return (aviResolution != 1) != review; }

// Overlays of one paint in drawing order.  While recording, each plan advances the indicator by one phase.
OverlayPlan PlanOverlays(const CameraSettings& settings, const ScreenState& screen, RecordingState& recording);
