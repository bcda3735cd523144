#pragma once
#include "jpeg/scalar/block.h"

namespace jpeg {

// The farthest block for which scalarDct8 is exact.
inline constexpr uint32_t kDct8MaxMagnitude = 7000;

// inverseDct8 of a dequantised block, which is cleared. `out` and `stride` are multiples of 4. keptRows: how
// many rows of every four are wanted, 4 or 3; the last ones are left as they are otherwise.
void scalarDct8(ScalarBlock& block, uint8_t* out, uint32_t stride, uint32_t keptRows);

}  // namespace jpeg
