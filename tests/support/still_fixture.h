// A camera with its card open, about to take a still picture.
#pragma once
#include "capture/still_capture.h"
#include "support/camera_records.h"

class StillFixture : public CameraRecords {
  protected:
    StillFixture() {
        OpenCamera(device);
        driver.calls.clear();
    }

    uint32_t Take() { return TakeSnapshot(capture, settings.resolution); }
    ShutterResult Press(uint32_t now = 0) { return PressShutter(capture, now); }

    std::unique_ptr<ReviewBuffer> review = std::make_unique<ReviewBuffer>();
    StillCapture capture{settings, profile, screen, device, *decoder, *image, *review};
};
