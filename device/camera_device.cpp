#include "device/camera_device.h"

#include "device/preview_mode.h"

namespace {

bool Control(CameraDevice& device, uint32_t code, const void* input = nullptr, uint32_t inputSize = 0,
             void* output = nullptr) {
    uint32_t returned;
    return ControlDriver(device.handle, code, input, inputSize, output, returned);
}

}  // namespace

bool OpenCamera(CameraDevice& device) {
    device.handle = OpenDriver(DriverShare::readWrite);
    return IsOpen(device);
}

void CloseCamera(CameraDevice& device) {
    if (IsOpen(device)) CloseDriver(device.handle);
    device.handle = kNoDriver;
}

void SetEventWindow(CameraDevice& device) {
    Control(device, IOCTL_CAMERA_SET_EVENT_WINDOW, &device.eventWindow, 0);
}

uint32_t StartPreview(CameraDevice& device, uint32_t mode) {
    device.lastMode = mode;
    device.streaming = true;
    // The driver takes the mode from the input's length; the buffer only carries our window variable's address.
    // An honest sizeof would ask for one and the same mode at every zoom.  (CameraDeviceTest.ModeTravelsInInputSize)
    return Control(device, IOCTL_CAMERA_START_PREVIEW, &device.previewWindow, mode) ? 0 : 1;
}

void StopPreview(CameraDevice& device) {
    device.streaming = false;
    Control(device, IOCTL_CAMERA_STOP_PREVIEW);
}

void RestartPreview(CameraDevice& device, int32_t videoResolution, uint32_t zoom) {
    if (const uint32_t mode = PreviewMode(videoResolution, zoom)) StartPreview(device, mode);
}

void SendImageParams(CameraDevice& device, const CameraSettings& settings) {
    device.imageParameters = {static_cast<uint32_t>(settings.awb), static_cast<uint32_t>(settings.color),
                              static_cast<uint32_t>(settings.imageQuality),
                              static_cast<uint32_t>(settings.aeMetering)};
    Control(device, IOCTL_CAMERA_SET_IMAGE_PARAMS, &device.imageParameters, sizeof(ImageParameters));
}

uint32_t ReadFrame(CameraDevice& device, uint8_t* scan) {
    uint32_t length = 0;
    ControlDriver(device.handle, IOCTL_CAMERA_READ_FRAME, device.feedback, sizeof(device.feedback), scan, length);
    return length;
}

void CaptureStill(CameraDevice& device, const StillRequest& request) {
    Control(device, IOCTL_CAMERA_CAPTURE_STILL, &request, sizeof(request));
}

void GetVersion(CameraDevice& device, char16_t* text) {
    Control(device, IOCTL_CAMERA_GET_VERSION, nullptr, 0, text);
}

void ShutDownCamera(CameraDevice& device) { Control(device, IOCTL_CAMERA_SHUTDOWN); }
