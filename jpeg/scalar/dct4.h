#pragma once
#include "jpeg/scalar/block.h"

namespace jpeg {

// The farthest block for which scalarDct4 is exact.
inline constexpr uint32_t kDct4MaxMagnitude = (1u << 17) - 1;

// inverseDct4 of a dequantised block, which is cleared. `out` and `stride` are multiples of 4.
void scalarDct4(ScalarBlock& block, uint8_t* out, uint32_t stride);

}  // namespace jpeg
