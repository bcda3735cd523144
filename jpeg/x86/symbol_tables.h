// Tables that decode several symbols of the typical Huffman tables in one look, for the fast engines.
#pragma once
#include <cstdint>

namespace jpeg {

inline constexpr uint32_t kLookBits = 11;
inline constexpr uint32_t kLooks = 1 << kLookBits;

// One or two coefficients, and the end of the block if it follows, by the next kLookBits bits. Where only one
// coefficient fits it is the last, and the first stands for a zero that it may overwrite. A run of 16 zeros
// is a coefficient of value zero. A DC difference always stands alone, and what ends there is the block's DC
// part.
//   bits 0..6    total length
//   bit 7        the block, or its DC part, ends here
//   bits 8..15   place of the last coefficient, less the place that comes next; 63 = not even one fits
//   bits 16..18  place of the first coefficient, less the place that comes next
//   bits 19..23  value of the first, signed
//   bits 24..31  value of the last, signed; of AC coefficients it takes 6 bits at most
struct LookTable {
    uint32_t entries[kLooks];
};

// The first coefficient of a look, as its byte of the entry holds it.
struct FirstOfLook {
    int32_t packed;
    uint32_t place() const { return packed & 7; }
    int32_t value() const { return packed >> 3; }
};

struct Look {
    uint32_t entry;
    uint32_t length() const { return entry & 127; }
    uint32_t lastPlace() const { return entry >> 8 & 255; }
    FirstOfLook first() const { return {static_cast<int32_t>(entry << 8) >> 24}; }
    int32_t last() const { return static_cast<int32_t>(entry) >> 24; }
    bool ends() const { return (entry & kEnds) != 0; }
    static constexpr uint32_t kEnds = 1u << 7;
    static constexpr uint32_t kNothingFits = 63;
};

// As many AC coefficients as fit, and the end of the block if it follows, for those who need no values: the
// magnitude of the last one may lie beyond the bits looked at.
//   bits 0..7    total length
//   bits 8..13   places to move on; 63 = not even one code fits
//   bit 15       the block ends here
struct SkipTable {
    uint16_t entries[kLooks];
};
inline constexpr uint32_t kSkipEndBit = 1u << 15;

// Index 0: luminance, 1: chrominance.
extern const LookTable kDcLooks[2];
extern const LookTable kAcLooks[2];
extern const SkipTable kAcSkips[2];
// The looks at a block's start, by its DC and its AC table: the DC difference and, if they fit, the first AC
// coefficient and the end of the block.
extern const LookTable kStartLooks[2][2];

}  // namespace jpeg
