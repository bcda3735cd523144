// Blocks at reduction 4 and 8, of which no coefficients are kept.
#pragma once
#include "jpeg/scalar/block.h"

namespace jpeg {

// What a coefficient adds to the four samples of a block at reduction 4. By inverseDct2, the samples are sums
// and differences of four sums over the rows and columns 0, 1, 3, 5 and 7: that of coefficient 0, of its row,
// of its column, and of all the others. They wrap, so they can be taken in any order.
struct SumStep {
    uint32_t sum;     // which: row not 0 (2) and column not 0 (1)
    uint32_t weight;  // the scaled quantisation step with its sign; 0 for those that have no part
};
struct SumSteps {
    SumStep steps[kLastCoefficient + kFarthestRun + 1];
};

// Returns true: any table will do.
bool makeSumSteps(SumSteps& made, const uint32_t* prescaledQuant);

struct BlockSums {
    uint32_t at[4];
};

// Decodes one block into its four samples; false: not ordinary. (`sums` is room for work: in the caller's
// hands its address is known, which saves an instruction each time.)
bool decodeSums(BlockSums& sums, ScalarBits& bits, ComponentPlan<SumSteps>& plan, uint8_t* out);

// At reduction 8: the first coefficient's alone.
struct MeanStep {
    uint32_t quant;
};

// Decodes one block of which only the predictor matters; false: not ordinary.
bool decodeMean(ScalarBits& bits, ComponentPlan<MeanStep>& plan);

}  // namespace jpeg
