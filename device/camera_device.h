// The camera card: one device handle and its control calls.  Portable; all calls come from the interface thread.
// Results of control calls are ignored unless a function returns them.
#pragma once
#include <cstdint>

#include "device/control_codes.h"
#include "device/driver_link.h"
#include "settings/camera_settings.h"

struct CameraDevice {
    DriverHandle handle = kNoDriver;
    bool streaming = false;        // between StartPreview and StopPreview; the watchdog acts only then
    uint32_t lastMode = 0;         // mode code of the latest StartPreview
    uint32_t activity = 0;         // frame announcements since the last watchdog tick
    uint8_t failures = 0;          // reopen attempts that failed in a row
    void* eventWindow = nullptr;   // the camera screen; the driver keeps this variable's address
    void* previewWindow = nullptr; // the live view; likewise
    uint8_t feedback[4] = {};      // decoder statistics that go with the next frame request
    ImageParameters imageParameters = {};
};

inline bool IsOpen(const CameraDevice& device) { return device.handle != kNoDriver; }

// Opens the card, shared with others.  False when there is none.
bool OpenCamera(CameraDevice& device);
// Closes the handle, if any, and marks it invalid.
void CloseCamera(CameraDevice& device);

void SetEventWindow(CameraDevice& device);
// 0 when the driver accepted the mode, 1 otherwise.
uint32_t StartPreview(CameraDevice& device, uint32_t mode);
void StopPreview(CameraDevice& device);
// Starts the stream that goes with the video resolution and zoom, or none.
void RestartPreview(CameraDevice& device, int32_t videoResolution, uint32_t zoom);
void SendImageParams(CameraDevice& device, const CameraSettings& settings);
// Fetches one frame's scan data; the length the driver reports, which may lie outside IsFrameLength.
uint32_t ReadFrame(CameraDevice& device, uint8_t* scan);
void CaptureStill(CameraDevice& device, const StillRequest& request);
// Fills a buffer of kVersionCharacters; left as it is when the card does not answer.
void GetVersion(CameraDevice& device, char16_t* text);
void ShutDownCamera(CameraDevice& device);
