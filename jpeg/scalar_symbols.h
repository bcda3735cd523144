// Symbols of ordinary data, one look each; what the look-ahead of scalar_codes.h does not hold takes longer.
#pragma once
#include "jpeg/scalar_bits.h"
#include "jpeg/scalar_codes.h"

namespace jpeg {

inline constexpr uint32_t kNoSymbol = 0x100;

// Takes a code longer than the look-ahead, of the 16 bits that are available. Returns its symbol, kNoSymbol
// where no code begins.
inline uint32_t takeLongCode(ScalarBits& bits, const HuffmanTable& table) {
    for (uint32_t length = kCodeLook + 1; length <= table.maxLength; ++length) {
        const int32_t code = static_cast<int32_t>(bits.peek(length));
        if (code > table.maxCode[length]) continue;
        bits.drop(length);
        return table.huffVal[(table.valOffset[length] + code) & 0xFF];
    }
    return kNoSymbol;
}

// The signed value of 1..15 bits, of the 16 that are available.
inline int32_t takeValue(ScalarBits& bits, uint32_t size) {
    const uint32_t magnitude = bits.peek(size);
    bits.drop(size);
    return extendSign(magnitude, size);
}

// One kind of component's codes.
struct ScalarTables {
    const CodeTable* dcCodes;
    const CodeTable* acCodes;
    const HuffmanTable* dcTable;
    const HuffmanTable* acTable;
};

// Adds the next difference to the predictor; false: not ordinary.
inline bool takeDc(ScalarBits& bits, const ScalarTables& tables, int32_t& predictor) {
    if (!bits.refill()) return false;
    const uint32_t entry = tables.dcCodes->entries[bits.peek(kCodeLook)];
    int32_t difference = entryValue(entry);
    if (difference != 0) {
        bits.drop(entryBits(entry));
    } else {
        uint32_t size = entrySymbol(entry);
        bits.drop(entryBits(entry));
        if (entry == 0) size = takeLongCode(bits, *tables.dcTable);
        if (size == kNoSymbol || !bits.refill()) return false;
        if (size != 0) difference = takeValue(bits, size);
    }
    predictor = static_cast<int32_t>(static_cast<uint32_t>(predictor) + static_cast<uint32_t>(difference));
    return true;
}

}  // namespace jpeg
