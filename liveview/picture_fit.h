// Resizes a picture smoothly.  Portable.
#pragma once
#include "liveview/picture_source.h"

// Bilinear, in integers.  `to` gives the wanted size; its pixels are written to `pixels`
// (RowBytes(to.width) * to.height bytes).  Both sizes are at least 1x1 and below 32768.
void FitPicture(const PictureSource& from, const PictureSource& to, uint8_t* pixels);
