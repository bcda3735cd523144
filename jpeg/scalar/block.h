// The coefficients of a block, dequantised while they are decoded.
#pragma once
#include <utility>

#include "jpeg/mcu_loop.h"
#include "jpeg/scalar/symbols.h"

namespace jpeg {

// A block's dequantised coefficients, column by column (8 x column + row): the transforms begin with columns.
// All are 0 between two blocks.
struct ScalarBlock {
    int32_t values[64] = {};
    // Which columns hold anything besides values[0], in three sets of 8 bits: in row 0, in rows 1..3, in rows
    // 4..7.
    uint32_t columns;
    uint32_t magnitude;  // not less than the sum of all absolute values, less 64
};

// Of column 0 in ScalarBlock::columns; the others' follow.
inline constexpr uint32_t kSetOfRow0 = 1u << 0;
inline constexpr uint32_t kSetOfRows1To3 = 1u << 8;
inline constexpr uint32_t kSetOfRows4To7 = 1u << 16;

// The columns in any set.
inline uint32_t columnsOf(const ScalarBlock& block) {
    return (block.columns | block.columns >> 8 | block.columns >> 16) & 0xFF;
}

template <uint32_t... kRow>
inline void clearRows(int32_t* column, std::integer_sequence<uint32_t, kRow...>) {
    ((column[kRow] = 0), ...);
}
// The first rows of a column. (Not a loop, of which compilers make a call.)
template <uint32_t kRows>
inline void clearFirst(int32_t* column) {
    clearRows(column, std::make_integer_sequence<uint32_t, kRows>());
}

// What the k-th coefficient of a stream needs.
struct CoefficientStep {
    uint32_t where;  // bits 0..7: offset of its place in ScalarBlock::values, in bytes; then its set
    int32_t quant;
};

// Behind the last coefficient lie steps that store zeros: a run that leads there is noticed afterwards.
struct BlockSteps {
    CoefficientStep steps[kLastCoefficient + kFarthestRun + 1];
};

// False: a table that no stream can bring, as one that was scaled for reduction 4 before; sums of what comes
// of it could leave 32 bits.
bool makeBlockSteps(BlockSteps& made, const uint32_t* quant);

// Decodes one block into `block`; false: not ordinary, the block is to be cleared.
bool decodeScalarBlock(ScalarBlock& block, ScalarBits& bits, ComponentPlan<BlockSteps>& plan);

}  // namespace jpeg
