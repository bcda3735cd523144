// The coefficients of a block, dequantised while they are decoded.
#pragma once
#include "jpeg/mcu_loop.h"
#include "jpeg/scalar_symbols.h"

namespace jpeg {

// A block's dequantised coefficients, column by column (8 x column + row): the transforms begin with columns.
// All are 0 between two blocks.
struct ScalarBlock {
    int32_t values[64] = {};
    uint32_t columns;    // those that hold anything, see CoefficientStep; 0: nothing but values[0]
    uint32_t magnitude;  // not less than the sum of all absolute values, less 63
};

// What the k-th coefficient of a stream needs.
struct CoefficientStep {
    // bits 0..7    offset of its place in ScalarBlock::values, in bytes
    // bits 8..31   the bit of its column, in one of three sets: row 0, rows 1..3, rows 4..7
    uint32_t where;
    int32_t quant;
};
inline constexpr uint32_t kColumnsOfRow0 = 8;
inline constexpr uint32_t kColumnsOfRows1To3 = 16;
inline constexpr uint32_t kColumnsOfRows4To7 = 24;

inline constexpr uint32_t kLastCoefficient = 63;
inline constexpr uint32_t kFarthestRun = 16;  // a symbol leads no farther

// Behind the last coefficient lie steps that store zeros: a run that leads there is noticed afterwards.
struct BlockSteps {
    CoefficientStep steps[kLastCoefficient + kFarthestRun + 1];
};

// False: a table that no stream can bring, as one that was scaled for reduction 4 before; sums of what comes
// of it could leave 32 bits.
bool makeBlockSteps(BlockSteps& made, const uint32_t* quant);

// Decodes one block into `block`; false: not ordinary, the block is to be cleared.
bool decodeScalarBlock(ScalarBits& bits, const ScalarTables& tables, const BlockSteps& steps,
                       int32_t& predictor, ScalarBlock& block);

}  // namespace jpeg
