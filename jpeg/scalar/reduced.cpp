#include "jpeg/scalar/reduced.h"

#include "jpeg/scalar/skips.h"
#include "jpeg/zigzag.h"

namespace jpeg {

namespace {

// 1, 3, 5, 7: their signs in inverseDct2; 0 itself: 1; the others have no part.
constexpr int32_t kSigns[8] = {1, 1, 0, -1, 0, 1, 0, -1};

constexpr uint32_t kBias = 128u << 20;  // the level shift
constexpr uint32_t kClampBits = 0xF0000000;

inline uint8_t clampedByte(uint32_t biased) {
    const int32_t sample = (static_cast<int32_t>(biased - kBias) >> 20) + 128;
    return static_cast<uint8_t>(sample < 0 ? 0 : sample > 255 ? 255 : sample);
}

// The four samples of a block from its sums.
inline void storeSums(uint8_t* out, uint32_t stride, const BlockSums& block) {
    const uint32_t* const sums = block.at;
    const uint32_t upper = sums[0] + kBias + sums[2];
    const uint32_t lower = sums[0] + kBias - sums[2];
    const uint32_t upperOdd = sums[1] + sums[3];
    const uint32_t lowerOdd = sums[1] - sums[3];
    const uint32_t s[4] = {upper + upperOdd, upper - upperOdd, lower + lowerOdd, lower - lowerOdd};
    if (((s[0] | s[1] | s[2] | s[3]) & kClampBits) == 0) {
        out[0] = static_cast<uint8_t>(s[0] >> 20);
        out[1] = static_cast<uint8_t>(s[1] >> 20);
        out[stride] = static_cast<uint8_t>(s[2] >> 20);
        out[stride + 1] = static_cast<uint8_t>(s[3] >> 20);
    } else {
        out[0] = clampedByte(s[0]);
        out[1] = clampedByte(s[1]);
        out[stride] = clampedByte(s[2]);
        out[stride + 1] = clampedByte(s[3]);
    }
}

}  // namespace

bool makeSumSteps(SumSteps& made, const uint32_t* prescaledQuant) {
    made = {};
    for (uint32_t k = 0; k <= kLastCoefficient; ++k) {
        const uint32_t place = kZigzag[k];
        const uint32_t row = place / 8;
        const uint32_t column = place % 8;
        made.steps[k] = {(row != 0 ? 2u : 0u) + (column != 0 ? 1u : 0u),
                         prescaledQuant[place] * static_cast<uint32_t>(kSigns[row] * kSigns[column])};
    }
    return true;
}

bool decodeSums(BlockSums& sums, ScalarBits& reader, ComponentPlan<SumSteps>& plan, uint8_t* out) {
    ScalarBits bits = reader;
    if (!takeDc(bits, plan.tables, plan.predictor)) return false;
    const SumStep* const steps = plan.steps->steps;
    sums = {{static_cast<uint32_t>(plan.predictor) * steps->weight}};
    const auto add = [&sums](const SumStep& step, int32_t value) {
        sums.at[step.sum] += static_cast<uint32_t>(value) * step.weight;
    };
    if (!takeAc(bits, plan.tables, steps, add)) return false;
    reader = bits;
    storeSums(out, plan.stride, sums);
    return true;
}

bool decodeMean(ScalarBits& reader, ComponentPlan<MeanStep>& plan) {
    ScalarBits bits = reader;
    const ScalarTables& tables = plan.tables;
    if (!takeDc(bits, tables, plan.predictor)) return false;
    const uint16_t* const skips = tables.acSkips->entries;
    uint32_t next = 1;
    while (next <= kLastCoefficient) {
        const uint32_t entry = skips[bits.peek(kSkipLook)];
        if (entry != 0) {
            next += skipAdvance(entry);
            if (!bits.drop(skipBits(entry))) return false;
            continue;
        }
        uint32_t symbol = 0;
        const uint32_t length = longCode(bits, *tables.acTable, kSkipShortest, symbol);
        if (symbol == kNoSymbol || !bits.drop(length) || !bits.drop(symbol & 15)) return false;
        next += symbol == 0 ? kSkipToEnd : (symbol >> 4) + 1;
    }
    reader = bits;
    return next == kLastCoefficient + 1 || (next > kSkipToEnd && next <= kSkipToEnd + kLastCoefficient);
}

}  // namespace jpeg
