// A camera with its card open, about to take a still picture.
#pragma once
#include <gtest/gtest.h>

#include <memory>

#include "capture/still_capture.h"
#include "fakes/driver_fake.h"

class StillFixture : public testing::Test {
  protected:
    StillFixture() {
        buildHuffmanTables(*decoder);
        OpenCamera(device);
        driver.calls.clear();
    }
    ~StillFixture() override { releaseBuffers(*decoder); }

    uint32_t Take() { return TakeSnapshot(capture, settings.resolution); }
    ShutterResult Press(uint32_t now = 0) { return PressShutter(capture, now); }

    DriverFake& driver = ResetDriverFake();
    CameraSettings settings;
    Profile profile;
    ScreenState screen;
    CameraDevice device;
    std::unique_ptr<DecoderContext> decoder = std::make_unique<DecoderContext>();
    std::unique_ptr<DecodedImage> image = std::make_unique<DecodedImage>();
    std::unique_ptr<ReviewBuffer> review = std::make_unique<ReviewBuffer>();
    StillCapture capture{settings, profile, screen, device, *decoder, *image, *review};
};
