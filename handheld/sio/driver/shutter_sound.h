// The sound of the shutter.
#pragma once
#include <cstdint>

namespace sio {

// Plays the WAVE resource "SNAP" of the program without waiting for its end; silent when the module is
// another one.
void playShutterSound(uint32_t module);

}  // namespace sio
