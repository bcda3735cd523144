// Words of samples and pixels in memory, the lowest byte first on every machine.
#pragma once
#include <cstdint>
#include <cstring>

namespace jpeg {

// `out` is a multiple of the value's size; the compilers make one store of it where the machine's own order is
// the same.
template <class Value>
inline void storeAligned(uint8_t* out, Value value) {
    uint8_t* const at = static_cast<uint8_t*>(__builtin_assume_aligned(out, sizeof value));
#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
    std::memcpy(at, &value, sizeof value);
#else
    for (uint32_t i = 0; i < sizeof value; ++i) at[i] = static_cast<uint8_t>(value >> (8 * i));
#endif
}

inline void storeHalf(uint8_t* out, uint32_t value) {
    storeAligned(out, static_cast<uint16_t>(value));
}

inline void storeWord(uint8_t* out, uint32_t value) {
    storeAligned(out, value);
}

}  // namespace jpeg
