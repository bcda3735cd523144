// Letters drawn as strokes, so that they stay crisp at every zoom.
#pragma once
#include <string_view>

#include "handheld/sio/picture/path.h"

namespace sio {

// Width of a text in units when its capitals are `height` high.
float textWidth(std::string_view text, float height);

// The outline of a text whose first capital's top left corner is at (x, y). Small letters are drawn as
// capitals, characters without a glyph as a hollow box.
Path textPath(std::string_view text, float x, float y, float height, float thickness);

// The same, centred on x.
Path centredTextPath(std::string_view text, float x, float y, float height, float thickness);

}  // namespace sio
