#include "device/camera_device.h"

#include <gtest/gtest.h>

#include "fakes/driver_fake.h"

namespace {

using Calls = std::vector<std::string>;

class CameraDeviceTest : public testing::Test {
  protected:
    DriverFake& driver = ResetDriverFake();
    CameraDevice device;
};

TEST_F(CameraDeviceTest, OpensSharedAndClosesOnce) {
    EXPECT_TRUE(OpenCamera(device));
    CloseCamera(device);
    CloseCamera(device);
    EXPECT_FALSE(IsOpen(device));
    EXPECT_EQ(driver.calls, (Calls{"open share=3", "close"}));
}

TEST_F(CameraDeviceTest, OpenFailsWithoutACard) {
    driver.cardPresent = false;
    EXPECT_FALSE(OpenCamera(device));
    EXPECT_FALSE(IsOpen(device));
}

TEST_F(CameraDeviceTest, EveryControlCallHasItsCodeAndInputSize) {
    CameraSettings settings;
    StillRequest request = {};
    char16_t version[kVersionCharacters];
    uint8_t scan[4];
    OpenCamera(device);
    driver.calls.clear();
    SetEventWindow(device);
    SendImageParams(device, settings);
    ReadFrame(device, scan);
    CaptureStill(device, request);
    GetVersion(device, version);
    StopPreview(device);
    ShutDownCamera(device);
    EXPECT_EQ(driver.calls, (Calls{"control 80000027 in=0", "control 8000001B in=16", "control 80000013 in=4",
                                   "control 80000007 in=220", "control 80000023 in=0", "control 80000017 in=0",
                                   "control 8000002B in=0"}));
}

TEST_F(CameraDeviceTest, ModeTravelsInInputSize) {
    for (uint32_t mode : {4u, 9u, 17u, 6u, 20u, 21u}) {
        EXPECT_EQ(StartPreview(device, mode), 0u);
        EXPECT_EQ(driver.calls.back(), "control 8000000F in=" + std::to_string(mode));
        EXPECT_EQ(driver.lastInput, &device.previewWindow);
        EXPECT_EQ(device.lastMode, mode);
        EXPECT_TRUE(device.streaming);
    }
}

TEST_F(CameraDeviceTest, RefusedPreviewIsReportedAndStillCountsAsStreaming) {
    driver.acceptControls = false;
    EXPECT_EQ(StartPreview(device, 4), 1u);
    EXPECT_TRUE(device.streaming);
    StopPreview(device);
    EXPECT_FALSE(device.streaming);
}

TEST_F(CameraDeviceTest, ImageParametersAreTheFourSettingsInOrder) {
    CameraSettings settings;
    settings.awb = 3;
    settings.color = 2;
    settings.imageQuality = 1;
    settings.aeMetering = 77;  // goes through unchecked
    SendImageParams(device, settings);
    const uint8_t expected[16] = {3, 0, 0, 0, 2, 0, 0, 0, 1, 0, 0, 0, 77, 0, 0, 0};
    EXPECT_EQ(driver.lastInputBytes, std::vector<uint8_t>(expected, expected + 16));
}

TEST_F(CameraDeviceTest, ReadFrameSendsTheFeedbackAndReturnsTheDriversLength) {
    driver.frame = {1, 2, 3};
    for (int i = 0; i < 4; ++i) device.feedback[i] = static_cast<uint8_t>(10 + i);
    uint8_t scan[8] = {};
    EXPECT_EQ(ReadFrame(device, scan), 3u);
    EXPECT_EQ(scan[2], 3);
    EXPECT_EQ(driver.lastInputBytes, (std::vector<uint8_t>{10, 11, 12, 13}));
}

TEST_F(CameraDeviceTest, ReadFrameOfARefusingDriverIsEmpty) {
    driver.frame = {1, 2, 3};
    driver.acceptControls = false;
    uint8_t scan[8] = {};
    EXPECT_EQ(ReadFrame(device, scan), 0u);
}

TEST_F(CameraDeviceTest, EventWindowTravelsByAddress) {
    SetEventWindow(device);
    EXPECT_EQ(driver.lastInput, &device.eventWindow);
}

}  // namespace
