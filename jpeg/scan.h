// The scan: its header, its MCUs with their restart points, and the rows that come of them.
#pragma once
#include "jpeg/decoder.h"

namespace jpeg {

// After FF DA. Returns a DecodeCode; kDecodeScanEndedOnMarker when the scan stopped at a marker whose 0xFF
// has been taken already.
uint32_t decodeScan(DecoderContext& context, bool planar);

}  // namespace jpeg
