// What a still request says.  Portable.
#pragma once
#include <cstdint>
#include <string>

#include "app/screen_state.h"
#include "device/control_codes.h"
#include "settings/camera_settings.h"

// Mode code of the request: size and zoom of the picture.
uint8_t StillMode(int32_t resolution, const ScreenState& screen);

// Fills the whole request.  `module` is the program's module handle as the driver knows it.
// False when the path does not fit; the request is then not to be sent.
bool FillStillRequest(StillRequest& request, const CameraSettings& settings, const ScreenState& screen,
                      int32_t resolution, const std::wstring& path, uint32_t module);
