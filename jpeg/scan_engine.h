// The ways to decode the MCU rows of a scan. All deliver the same bytes and codes; the portable one says what
// is computed, the others are faster on the processors that can run them.
#pragma once
#include "jpeg/decoder.h"

namespace jpeg {

struct ScanWalk;

struct ScanEngine {
    const char* name;     // "portable", ...
    bool (*supported)();  // whether this processor can run it
    // Strip by strip: each MCU row is converted and delivered as soon as it is complete. Returns a
    // DecodeCode, or kDecodeScanEndedOnMarker.
    uint32_t (*decodeStrips)(DecoderContext& context, ScanWalk& walk);
};

struct ScanEngineList {
    const ScanEngine* engines;
    uint32_t count;
    const ScanEngine* begin() const { return engines; }
    const ScanEngine* end() const { return engines + count; }
};

// All engines of this build: the portable one first, each faster than those before it.
ScanEngineList scanEngines();

// The last of them that this processor can run.
const ScanEngine& fastestScanEngine();

// Converts and delivers the MCU row that is complete in the planes; after the last, what is left of the
// picture.
void deliverMcuRow(DecoderContext& context, uint32_t row);

}  // namespace jpeg
