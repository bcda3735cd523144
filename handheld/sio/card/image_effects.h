// What the card's image processor does to the sensor's picture: exposure, white balance, colour mode.
#pragma once
#include "device/control_codes.h"
#include "handheld/sio/picture/picture.h"

namespace sio {

// Applies the parameters in place; one that is out of its range counts as 0. The quality is none of its
// business.
void applyImageParameters(const ImageParameters& parameters, Picture& picture);

}  // namespace sio
