// The records of a camera that takes pictures or shows them, each as it begins.
#pragma once
#include <gtest/gtest.h>

#include <memory>

#include "app/screen_state.h"
#include "capture/decoded_image.h"
#include "device/camera_device.h"
#include "fakes/driver_fake.h"
#include "framework/profile.h"
#include "jpeg/decoder.h"
#include "settings/camera_settings.h"

class CameraRecords : public testing::Test {
  protected:
    CameraRecords() { buildHuffmanTables(*decoder); }
    ~CameraRecords() override { releaseBuffers(*decoder); }

    DriverFake& driver = ResetDriverFake();
    CameraSettings settings;
    Profile profile;
    ScreenState screen;
    CameraDevice device;
    std::unique_ptr<DecoderContext> decoder = std::make_unique<DecoderContext>();
    std::unique_ptr<DecodedImage> image = std::make_unique<DecodedImage>();
};
