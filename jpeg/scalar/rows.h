#pragma once
#include "jpeg/converters.h"

namespace jpeg {

// A converter for the rows of this frame, faster than the portable one and equal to it; the one that the
// context has already where there is none: for general scaling, for a picture that does not lie in whole
// words, and for widths that no camera has. After beginPicture().
RowConverter scalarRowConverter(const DecoderContext& context);

}  // namespace jpeg
