#pragma once
#include "jpeg/scan_engine.h"

namespace jpeg {

// The engine that runs everywhere, and that every other one must equal.
uint32_t decodeStripsPortably(DecoderContext& context, ScanWalk& walk);

}  // namespace jpeg
