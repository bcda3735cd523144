// Tables that decode several symbols of the typical Huffman tables in one look, for the fast engines.
#pragma once
#include <cstdint>

namespace jpeg {

// Difference and its code by the next kDcLookBits bits: total length in the low byte, 0 = does not fit; the
// difference above it.
inline constexpr uint32_t kDcLookBits = 10;
struct DcLook {
    int32_t entries[1 << kDcLookBits];
};

// One or two AC coefficients, and the end of the block if it follows, by the next kAcLookBits bits. Where
// only one coefficient fits it is `last`, and `first` stands for a zero that it may overwrite. A run of 16
// zeros is a coefficient of value zero.
//   bits 0..7    total length
//   bits 8..13   place of the last coefficient, less the place that comes next; 63 = not even one fits
//   bit 15       the block ends here
//   bits 16..19  place of the first coefficient, less the place that comes next
//   bits 21..25  value of the first, signed
//   bits 26..31  value of the last, signed
inline constexpr uint32_t kAcLookBits = 11;
inline constexpr uint32_t kEndOfBlockBit = 1u << 15;
struct AcLook {
    uint32_t entries[1 << kAcLookBits];
};

// As many AC coefficients as fit, and the end of the block if it follows, for those who need no values: the
// magnitude of the last one may lie beyond the bits looked at.
//   bits 0..7    total length
//   bits 8..13   places to move on; 63 = not even one code fits
//   bit 15       the block ends here
struct AcSkip {
    uint16_t entries[1 << kAcLookBits];
};

// Index 0: luminance, 1: chrominance.
extern const DcLook kDcLooks[2];
extern const AcLook kAcLooks[2];
extern const AcSkip kAcSkips[2];

}  // namespace jpeg
