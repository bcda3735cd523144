// What the card's mode codes stand for.
#pragma once
#include <cstdint>

#include "handheld/sio/encoder/planes.h"
#include "handheld/sio/picture/view.h"

namespace sio {

struct PreviewMode {
    uint32_t code;
    View view;
    Sampling sampling;  // must agree with the header that the program puts in front of the mode's frames
};

struct StillMode {
    uint32_t code;
    View view;
    uint32_t kilobytes;  // most that a file of quality 0 should take; each quality step doubles it
};

// Null for a code that the card does not know.
const PreviewMode* findPreviewMode(uint32_t code);
const StillMode* findStillMode(uint32_t code);

}  // namespace sio
