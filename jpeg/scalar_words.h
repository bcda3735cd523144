// Words of samples and pixels in memory, the lowest byte first on every machine. The compilers turn each of
// these into one store where the machine's own order is the same.
#pragma once
#include <cstdint>

namespace jpeg {

// `out` is a multiple of 2.
inline void storeHalf(uint8_t* out, uint32_t value) {
    uint8_t* const at = static_cast<uint8_t*>(__builtin_assume_aligned(out, 2));
    at[0] = static_cast<uint8_t>(value);
    at[1] = static_cast<uint8_t>(value >> 8);
}

// `out` is a multiple of 4.
inline void storeWord(uint8_t* out, uint32_t value) {
    uint8_t* const at = static_cast<uint8_t*>(__builtin_assume_aligned(out, 4));
    at[0] = static_cast<uint8_t>(value);
    at[1] = static_cast<uint8_t>(value >> 8);
    at[2] = static_cast<uint8_t>(value >> 16);
    at[3] = static_cast<uint8_t>(value >> 24);
}

}  // namespace jpeg
