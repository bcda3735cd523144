// Words of samples and pixels in memory, the lowest byte first on every machine. Compilers make one store of
// each where the machine's own order is the same.
#pragma once
#include <cstdint>
#include <cstring>

namespace jpeg {

// The low kBytes bytes of `value`; `out` is a multiple of that.
template <uint32_t kBytes>
inline void storeAligned(uint8_t* out, uint32_t value) {
    uint8_t* const at = static_cast<uint8_t*>(__builtin_assume_aligned(out, kBytes));
#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
    std::memcpy(at, &value, kBytes);
#else
    for (uint32_t i = 0; i < kBytes; ++i) at[i] = static_cast<uint8_t>(value >> (8 * i));
#endif
}

inline void storeHalf(uint8_t* out, uint32_t value) {
    storeAligned<2>(out, value);
}

inline void storeWord(uint8_t* out, uint32_t value) {
    storeAligned<4>(out, value);
}

}  // namespace jpeg
