// Taking a still picture into a file.
#pragma once
#include "device/control_codes.h"
#include "handheld/sio/driver/camera.h"

namespace sio {

// Takes the picture, plays the shutter's sound and writes the file. False, with the last error set and no
// file left behind, when the request cannot be met or the store has no room; a file that was there before
// then stays.
bool takeStill(CCamera& camera, const StillRequest& request);

}  // namespace sio
