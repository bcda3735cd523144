// Pictures as a camera takes them: a far and a near ground, things with edges and shades, texture of every
// size, the lens's softness and the sensor's noise.
#pragma once
#include "handheld/sio/picture/picture.h"

namespace corpus {

// The picture of this number, the same on every machine; pictures of different sizes differ, too.
// Sixteen successive numbers have every degree of detail from plain to rich.
sio::Picture photograph(int width, int height, uint32_t number);

}  // namespace corpus
