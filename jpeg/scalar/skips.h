// Look-ahead tables for blocks whose coefficients are not wanted: as many whole symbols as can be told from
// the next kSkipLook bits, in one entry.
//
//     bits 0..7   bits of these symbols and their values, at most kSkipMaxBits
//     bits 8..15  by how many coefficients they lead on; kSkipToEnd is added at the end of a block
//
// An entry 0 stands for a code that is longer.
// Some symbols of an entry may lie behind the block's end: the block's 63rd coefficient needs no end of
// block. Then the sum of the advances tells: it is neither exactly at the end nor, less kSkipToEnd, before
// it.
#pragma once
#include "jpeg/typical_tables.h"

namespace jpeg {

inline constexpr uint32_t kSkipLook = 10;
inline constexpr uint32_t kSkipMaxBits = 16;
inline constexpr uint32_t kSkipToEnd = 128;
inline constexpr uint32_t kSkipShortest =
    7;  // code of an entry 0: more than kSkipMaxBits, of which 10 are value

struct SkipTable {
    uint16_t entries[1u << kSkipLook];
};

inline uint32_t skipBits(uint32_t entry) {
    return entry & 0xFF;
}
inline uint32_t skipAdvance(uint32_t entry) {
    return entry >> 8;
}

// One symbol by every look-ahead, as bits | advance << 8; what follows it does not matter.
constexpr SkipTable makeSingleSkips(const TypicalTable& typical) {
    SkipTable table{};
    uint32_t code = 0;
    uint32_t index = 0;
    for (uint32_t length = 1; length <= kSkipLook; ++length, code <<= 1) {
        for (uint32_t n = 0; n < typical.bits[length - 1]; ++n, ++code, ++index) {
            const uint32_t symbol = typical.values[index];
            const uint32_t bits = length + (symbol & 15);
            const uint32_t advance = symbol == 0 ? kSkipToEnd : (symbol >> 4) + 1;
            if (bits > kSkipMaxBits) continue;
            const uint32_t unused = kSkipLook - length;
            for (uint32_t rest = 0; rest < 1u << unused; ++rest) {
                table.entries[code << unused | rest] = static_cast<uint16_t>(advance << 8 | bits);
            }
        }
    }
    return table;
}

// Length of the code at the start of a look-ahead of which `known` bits are real; 0: it is longer than that.
constexpr uint32_t codeLength(const TypicalTable& typical, uint32_t look, uint32_t known) {
    uint32_t code = 0;
    for (uint32_t length = 1; length <= known; ++length, code <<= 1) {
        code += typical.bits[length - 1];
        if (look >> (kSkipLook - length) < code) return length;
    }
    return 0;
}

constexpr SkipTable makeSkipTable(const TypicalTable& typical) {
    const SkipTable singles = makeSingleSkips(typical);
    SkipTable table{};
    for (uint32_t look = 0; look < 1u << kSkipLook; ++look) {
        uint32_t bits = 0;
        uint32_t advance = 0;
        while (bits < kSkipLook && advance < kSkipToEnd) {
            const uint32_t rest = look << bits & ((1u << kSkipLook) - 1);
            const uint32_t single = singles.entries[rest];
            if (single == 0 || codeLength(typical, rest, kSkipLook - bits) == 0) break;
            const uint32_t allBits = bits + (single & 0xFF);
            const uint32_t allAdvance = advance + (single >> 8);
            if (allBits > kSkipMaxBits || allAdvance > 0xFF) break;
            bits = allBits;
            advance = allAdvance;
        }
        table.entries[look] = static_cast<uint16_t>(advance << 8 | bits);
    }
    return table;
}

// AC luminance, AC chrominance.
inline constexpr SkipTable kSkipTables[2] = {makeSkipTable(kTypicalTables[2]),
                                             makeSkipTable(kTypicalTables[3])};

}  // namespace jpeg
