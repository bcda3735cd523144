// Written by render.py from manifest.py.
#pragma once

namespace art {

struct LetteringPlace {
    short x, y;
};

// Top left corner of the lettering on the strip, one entry per pair of slots: the first slot of a pair is for
// the Still strips, the second for the Video strip. The bitmap brings its own size.
constexpr LetteringPlace kLetteringPlaces[] = {
    {174, 76},  // slots 0 and 1: shutter
    {60, 80},   // slots 2 and 3: menu
    {100, 80},  // slots 4 and 5: play
    {60, 9},    // slots 6 and 7: zoom_out
    {163, 9},   // slots 8 and 9: zoom_in
};

}  // namespace art
