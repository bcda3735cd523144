// How the fast engines hold the coefficients of a block: 64 words of 16 bits in the order in which the
// multiply-add instructions want them.
//
// Four groups of 16 words hold the rows 0 and 4, 2 and 6, 1 and 7, 5 and 3; each row's word of a column
// stands beside the other's. The columns stand in the order 0 4 2 6 1 7 5 3, so that the results of the
// column pass fall into the same pairs for the row pass.
#pragma once
#include <cstdint>

#include "jpeg/zigzag.h"

namespace jpeg {

inline constexpr uint32_t kGroupWords = 16;
enum WordGroup : uint32_t { kRows04 = 0, kRows26 = 16, kRows17 = 32, kRows53 = 48 };

struct BlockLayout {
    uint8_t word[64];  // of the k-th coefficient of a stream
};

constexpr BlockLayout makeBlockLayout() {
    constexpr uint8_t kOrder[8] = {0, 4, 2, 6, 1, 7, 5, 3};
    BlockLayout layout{};
    for (uint32_t k = 0; k < 64; ++k) {
        uint32_t row = 0;
        uint32_t column = 0;
        while (kOrder[row] != kZigzag[k] / 8) ++row;
        while (kOrder[column] != kZigzag[k] % 8) ++column;
        layout.word[k] = static_cast<uint8_t>(row / 2 * kGroupWords + 2 * column + row % 2);
    }
    return layout;
}

inline constexpr BlockLayout kBlockLayout = makeBlockLayout();

}  // namespace jpeg
