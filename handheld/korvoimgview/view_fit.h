// Where a picture lies in the area that shows it: fitting, zooming, panning.  Portable.
#pragma once
#include <cstdint>

namespace viewer {

struct Size {
    int width, height;
};

inline constexpr uint32_t kWhole = 65536;  // scale of one screen pixel for one picture pixel

struct View {
    uint32_t scale;  // screen pixels for a picture pixel, in 1/65536
    int x, y;        // the picture's top left corner in the area; negative when it lies outside
};

// Width and height of the picture on the screen, at least 1.
Size ScaledSize(Size picture, uint32_t scale);

// The largest scale at which the whole picture is seen, up to four times its size.  Sizes are at least 1.
uint32_t FitScale(Size picture, Size area);

// The whole picture, in the middle.
View FitView(Size picture, Size area);

// The next larger and smaller scale of the zoom ladder; never below the fitting scale, never above 400 %.
uint32_t LargerScale(uint32_t scale, uint32_t fit);
uint32_t SmallerScale(uint32_t scale, uint32_t fit);

// From the whole picture to its own size (or twice it, when the whole picture is its own size), from anything
// else back to the whole picture.
uint32_t ToggledScale(uint32_t scale, uint32_t fit);

// Another scale; what lies in the middle of the area stays there as far as the picture's edges allow.
View Zoomed(View view, Size picture, Size area, uint32_t scale);

// Moved, but no further than the picture's edges; a picture smaller than the area stays in the middle.
View Panned(View view, Size picture, Size area, int dx, int dy);

}  // namespace viewer
