#include "jpeg/scalar/block.h"

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
    const uint32_t set = row == 0 ? kSetOfRow0 : row < 4 ? kSetOfRows1To3 : kSetOfRows4To7;
    return (set << column) << 8 | (8 * column + row) * 4;
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

bool decodeScalarBlock(ScalarBlock& block, ScalarBits& reader, ComponentPlan<BlockSteps>& plan) {
    ScalarBits bits = reader;
    if (!takeDc(bits, plan.tables, plan.predictor)) return false;
    const CoefficientStep* const steps = plan.steps->steps;
    // The predictor of a damaged stream may be anything; the product wraps.
    block.values[0] =
        static_cast<int32_t>(static_cast<uint32_t>(plan.predictor) * static_cast<uint32_t>(steps->quant));
    uint32_t columns = 0;
    uint32_t magnitude = magnitudeOf(block.values[0]);
    const bool ordinary = takeAc(bits, plan.tables, steps, [&](const CoefficientStep& step, int32_t value) {
        const int32_t dequantised = value * step.quant;
        block.values[(step.where & 0xFF) / 4] = dequantised;
        columns |= step.where;
        magnitude += magnitudeOf(dequantised);
    });
    block.columns = columns >> 8;
    block.magnitude = magnitude;
    reader = bits;
    return ordinary;
}

}  // namespace jpeg
