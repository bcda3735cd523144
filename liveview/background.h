// The constant picture behind the small layout.
#pragma once
#include "liveview/canvas.h"

// Pixels of the 240x180 background in the canvas's layout; null when the resource is not what it should be.
const uint8_t* BackgroundPixels();
