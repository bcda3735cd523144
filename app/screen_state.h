// What the camera screen, the live view and the capture code share about the screen.  Portable leaf header.
#pragma once
#include <atomic>
#include <cstdint>

enum class CaptureMode : uint32_t { still = 0, video = 1 };

inline constexpr uint32_t kMaxZoom = 2;

struct ScreenState {
    CaptureMode mode = CaptureMode::still;
    uint32_t zoom = 0;                 // 0..2
    uint32_t zoomedSizeSelector = 2;   // still size while zoomed: 2 = 640x480, 3 = 320x240
    int32_t scaleCode = 9;             // decoder mode of the live view, set together with the frame header
    std::atomic<bool> captureInProgress{false};
    std::atomic<bool> reviewShowing{false};  // cleared by the review timer thread
    uint32_t picturesTaken = 0;        // since start-up; a deleted one is taken off again

    // The self-timer's countdown, run by the live view.
    bool countdownRunning = false;
    uint32_t countdownStart = 0;       // tick count, milliseconds
    uint32_t countdownDigit = 0;       // 0..10, as last shown
};
