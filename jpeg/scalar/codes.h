// The typical Huffman codes in small look-ahead tables, most entries a whole symbol with its value.
//
// An entry is found by the next kCodeLook bits:
//
//     value, 16 bits signed | run and one, 8 bits | bits of code and value, 8 bits
//     0                     | the symbol          | bits of the code alone: the value follows
//     0                     | 0                   | 0: the code is longer than the look-ahead
//
// The second kind comes where code and value are too long together, and where the symbol has no value: the
// end of a block, a run of 16 zeros, a DC difference of 0. The tables are small on purpose: the handheld's
// processor has 8 KB of data cache.
#pragma once
#include <cstdint>

#include "jpeg/huffman.h"
#include "jpeg/typical_tables.h"

namespace jpeg {

inline constexpr uint32_t kCodeLook = 9;
inline constexpr uint32_t kCodeEntries = 1u << kCodeLook;

struct CodeTable {
    uint32_t entries[kCodeEntries];
};

inline uint32_t entryBits(uint32_t entry) {
    return entry & 0xFF;
}
inline int32_t entryValue(uint32_t entry) {
    return static_cast<int32_t>(entry) >> 16;
}
inline uint32_t entryAdvance(uint32_t entry) {
    return entry >> 8 & 0xFF;
}
inline uint32_t entrySymbol(uint32_t entry) {
    return entry >> 8 & 0xFF;
}

// Enters every look-ahead that begins with the code.
constexpr void enterCode(CodeTable& table, uint32_t code, uint32_t length, uint32_t symbol) {
    const uint32_t run = symbol >> 4;
    const uint32_t size = symbol & 15;
    const uint32_t unused = kCodeLook - length;
    for (uint32_t rest = 0; rest < 1u << unused; ++rest) {
        uint32_t& entry = table.entries[code << unused | rest];
        if (size == 0 || size > unused) {
            entry = symbol << 8 | length;
        } else {
            const int32_t value = extendSign(rest >> (unused - size), size);
            entry = static_cast<uint32_t>(value) << 16 | (run + 1) << 8 | (length + size);
        }
    }
}

constexpr CodeTable makeCodeTable(const TypicalTable& typical) {
    CodeTable table{};
    uint32_t code = 0;
    uint32_t index = 0;
    for (uint32_t length = 1; length <= kCodeLook; ++length, code <<= 1) {
        for (uint32_t n = 0; n < typical.bits[length - 1]; ++n, ++code, ++index) {
            enterCode(table, code, length, typical.values[index]);
        }
    }
    return table;
}

// In the order of DecoderContext::huffman.
inline constexpr CodeTable kCodeTables[4] = {
    makeCodeTable(kTypicalTables[0]), makeCodeTable(kTypicalTables[1]), makeCodeTable(kTypicalTables[2]),
    makeCodeTable(kTypicalTables[3])};

}  // namespace jpeg
