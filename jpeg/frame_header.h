#pragma once
#include "jpeg/decoder.h"

namespace jpeg {

// After FF C0: reads the frame header, chooses the reduction, lays out the planes. Returns a DecodeCode.
// `planar` (modes 7 and 14): planes of the whole image, no reduction, one-component frames accepted.
uint32_t parseFrameHeader(DecoderContext& context, bool planar);

}  // namespace jpeg
