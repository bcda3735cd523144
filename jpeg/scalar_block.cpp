#include "jpeg/scalar_block.h"

#include "jpeg/zigzag.h"

namespace jpeg {

namespace {

// The absolute value, one less for negative ones.
inline uint32_t magnitudeOf(int32_t value) {
    return static_cast<uint32_t>(value ^ (value >> 31));
}

uint32_t whereOf(uint32_t place) {
    const uint32_t row = place / 8;
    const uint32_t column = place % 8;
    const uint32_t set = row == 0 ? kColumnsOfRow0 : row < 4 ? kColumnsOfRows1To3 : kColumnsOfRows4To7;
    return 1u << (set + column) | (8 * column + row) * 4;
}

}  // namespace

bool makeBlockSteps(BlockSteps& made, const uint32_t* quant) {
    made = {};
    for (uint32_t k = 0; k <= kLastCoefficient; ++k) {
        const uint32_t place = kZigzag[k];
        if (quant[place] > 255) return false;
        made.steps[k] = {whereOf(place), static_cast<int32_t>(quant[place])};
    }
    return true;
}

bool decodeScalarBlock(ScalarBits& reader, const ScalarTables& tables, const BlockSteps& steps,
                       int32_t& predictor, ScalarBlock& block) {
    ScalarBits bits = reader;
    if (!takeDc(bits, tables, predictor)) return false;
    const CoefficientStep* step = steps.steps;
    const CoefficientStep* const last = step + kLastCoefficient;
    const uint32_t* const codes = tables.acCodes->entries;
    const auto valueAt = [&block](uint32_t where) -> int32_t& { return block.values[(where & 0xFF) / 4]; };
    block.values[0] = static_cast<int32_t>(static_cast<uint32_t>(predictor) * static_cast<uint32_t>(step->quant));
    uint32_t columns = 0;
    uint32_t magnitude = magnitudeOf(block.values[0]);
    do {
        if (!bits.refill()) return false;
        const uint32_t entry = codes[bits.peek(kCodeLook)];
        bits.drop(entryBits(entry));
        int32_t value = entryValue(entry);
        if (value != 0) {
            step += entryAdvance(entry);
        } else {
            const uint32_t symbol = entry != 0 ? entrySymbol(entry) : takeLongCode(bits, *tables.acTable);
            if (symbol == 0) break;
            if (symbol == kNoSymbol || !bits.refill()) return false;
            const uint32_t size = symbol & 15;
            step += (symbol >> 4) + 1;
            if (size == 0) continue;
            value = takeValue(bits, size);
        }
        const uint32_t where = step->where;
        value *= step->quant;
        valueAt(where) = value;
        columns |= where;
        magnitude += magnitudeOf(value);
    } while (step < last);
    block.columns = columns >> 8;
    block.magnitude = magnitude;
    reader = bits;
    return step <= last;
}

}  // namespace jpeg
