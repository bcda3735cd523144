#pragma once
#include "jpeg/scan_engine.h"

namespace jpeg {

// The engine for processors without vectors, made for the handheld's: few registers, no misaligned words, 8
// KB of data cache. Equal to the portable engine in all that it delivers and leaves.
uint32_t decodeStripsScalar(DecoderContext& context, ScanWalk& walk);

}  // namespace jpeg
