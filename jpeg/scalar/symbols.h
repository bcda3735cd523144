// Symbols of ordinary data, one look each; what the look-ahead of scalar/codes.h does not hold takes longer.
#pragma once
#include "jpeg/scalar/bits.h"
#include "jpeg/scalar/codes.h"
#include "jpeg/scalar/skips.h"

namespace jpeg {

inline constexpr uint32_t kNoSymbol = 0x100;
inline constexpr uint32_t kLastCoefficient = 63;
inline constexpr uint32_t kFarthestRun = 16;  // a symbol leads no farther

// The length of a code of `shortest` bits or more; its symbol into `symbol`, kNoSymbol where no code begins.
inline uint32_t longCode(const ScalarBits& bits, const HuffmanTable& table, uint32_t shortest,
                         uint32_t& symbol) {
    for (uint32_t length = shortest; length <= table.maxLength; ++length) {
        const int32_t code = static_cast<int32_t>(bits.peek(length));
        if (code > table.maxCode[length]) continue;
        symbol = table.huffVal[(table.valOffset[length] + code) & 0xFF];
        return length;
    }
    symbol = kNoSymbol;
    return 0;
}

// Takes a symbol without its value, by an entry of a CodeTable that has none. False: not ordinary.
inline bool takeBareSymbol(ScalarBits& bits, const HuffmanTable& table, uint32_t entry, uint32_t& symbol) {
    uint32_t length = entryBits(entry);
    symbol = entrySymbol(entry);
    if (entry == 0) length = longCode(bits, table, kCodeLook + 1, symbol);
    return bits.drop(length) && symbol != kNoSymbol;
}

// Takes the signed value of 1..15 bits. False: not ordinary.
inline bool takeValue(ScalarBits& bits, uint32_t size, int32_t& value) {
    value = extendSign(bits.peek(size), size);
    return bits.drop(size);
}

// One component's codes.
struct ScalarTables {
    const CodeTable* dcCodes;
    const CodeTable* acCodes;
    const SkipTable* acSkips;
    const HuffmanTable* dcTable;
    const HuffmanTable* acTable;
};

// A component on its way through the scan. Steps: what the coefficients of its blocks need.
template <class Steps>
struct ComponentPlan {
    ScalarTables tables;
    const Steps* steps;
    int32_t predictor;
    uint32_t stride;
    uint32_t keptRows;  // of every four
};

// Adds the next difference to the predictor; false: not ordinary.
inline bool takeDc(ScalarBits& bits, const ScalarTables& tables, int32_t& predictor) {
    const uint32_t entry = tables.dcCodes->entries[bits.peek(kCodeLook)];
    int32_t difference = entryValue(entry);
    if (difference != 0) {
        if (!bits.drop(entryBits(entry))) return false;
    } else {
        uint32_t size = 0;
        if (!takeBareSymbol(bits, *tables.dcTable, entry, size)) return false;
        if (size == 0) return true;
        if (!takeValue(bits, size, difference)) return false;
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
        const uint32_t entry = codes[bits.peek(kCodeLook)];
        int32_t value = entryValue(entry);
        if (value != 0) {
            step += entryAdvance(entry);
            if (!bits.drop(entryBits(entry))) return false;
        } else {
            uint32_t symbol = 0;
            if (!takeBareSymbol(bits, *tables.acTable, entry, symbol)) return false;
            if (symbol == 0) return true;
            step += (symbol >> 4) + 1;
            if ((symbol & 15) == 0) continue;
            if (!takeValue(bits, symbol & 15, value)) return false;
        }
        store(*step, value);
    } while (step < last);
    return step == last;
}

}  // namespace jpeg
