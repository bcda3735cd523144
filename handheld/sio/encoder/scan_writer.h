// Entropy coding of a whole picture's scan.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

#include "handheld/sio/encoder/planes.h"
#include "handheld/sio/encoder/quantiser.h"

namespace sio {

struct StepTables {
    StepTable luma, chroma;
};

struct ScanLimits {
    size_t bytes;              // longest scan, the end-of-image marker included
    int lastCoefficient = 63;  // zig-zag place behind which coefficients are dropped
};

// Appends the scan (Annex K codes, byte stuffing, padded with ones) and its FF D9. False, with `out` as it
// was, when the scan would be longer than the limit.
bool writeScan(const Planes& planes, const StepTables& steps, const ScanLimits& limits,
               std::vector<uint8_t>& out);

}  // namespace sio
