// Symbols of ordinary data, one look each; what the look-ahead of scalar_codes.h does not hold takes longer.
#pragma once
#include "jpeg/scalar_bits.h"
#include "jpeg/scalar_codes.h"
#include "jpeg/scalar_skips.h"

namespace jpeg {

inline constexpr uint32_t kNoSymbol = 0x100;
inline constexpr uint32_t kLastCoefficient = 63;
inline constexpr uint32_t kFarthestRun = 16;  // a symbol leads no farther

// Takes a code of `shortest` bits or more, of the 16 that are available. Returns its symbol, kNoSymbol where
// no code begins.
inline uint32_t takeLongCode(ScalarBits& bits, const HuffmanTable& table, uint32_t shortest = kCodeLook + 1) {
    for (uint32_t length = shortest; length <= table.maxLength; ++length) {
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

// One component's codes.
struct ScalarTables {
    const CodeTable* dcCodes;
    const CodeTable* acCodes;
    const SkipTable* acSkips;
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

// The AC coefficients of a block: store(step, value) takes each that is not zero. The steps are those of
// coefficients 0..63, and kFarthestRun more for a run that leads past them. False: not ordinary.
template <class Step, class Store>
inline bool takeAc(ScalarBits& bits, const ScalarTables& tables, const Step* step, Store store) {
    const Step* const last = step + kLastCoefficient;
    const uint32_t* const codes = tables.acCodes->entries;
    do {
        if (!bits.refill()) return false;
        const uint32_t entry = codes[bits.peek(kCodeLook)];
        bits.drop(entryBits(entry));
        int32_t value = entryValue(entry);
        if (value != 0) {
            step += entryAdvance(entry);
        } else {
            const uint32_t symbol = entry != 0 ? entrySymbol(entry) : takeLongCode(bits, *tables.acTable);
            if (symbol == 0) return true;
            if (symbol == kNoSymbol || !bits.refill()) return false;
            step += (symbol >> 4) + 1;
            if ((symbol & 15) == 0) continue;
            value = takeValue(bits, symbol & 15);
        }
        store(*step, value);
    } while (step < last);
    return step == last;
}

}  // namespace jpeg
