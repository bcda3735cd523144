// Smooth scaling.  Portable.
#pragma once
#include "handheld/korvoimgview/pixels.h"
#include "handheld/korvoimgview/view_fit.h"

namespace viewer {

// Draws the part of a picture that a view shows into an area that already has its size; what the picture does
// not cover becomes `background`.  Shrinking averages, enlarging blends; at its own size a picture stays
// exact.
void DrawView(const Pixels& picture, const View& view, uint32_t background, Pixels& area);

}  // namespace viewer
