// Frames as the camera's movies hold them.
#pragma once
#include <string>

#include "handheld/sio/picture/picture.h"

namespace viewer {

// A frame of one colour behind the program's own header of that number, 1 to 3.
std::string CameraFrame(int header, sio::Rgb colour);

}  // namespace viewer
