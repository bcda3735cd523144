#include "jpeg/x86/dct_weights.h"

namespace jpeg {

namespace {

constexpr WeightPairs pairs(int32_t first, int32_t second) {
    WeightPairs weights{};
    for (uint32_t at = 0; at < 16; at += 2) {
        weights.words[at] = static_cast<int16_t>(first);
        weights.words[at + 1] = static_cast<int16_t>(second);
    }
    return weights;
}

constexpr Dct8Weights dct8Weights(int32_t gain) {
    return {pairs(362 * gain, 362 * gain),  pairs(362 * gain, -362 * gain), pairs(473 * gain, 196 * gain),
            pairs(196 * gain, -473 * gain), pairs(100 * gain, -502 * gain), pairs(502 * gain, 100 * gain),
            pairs(426 * gain, -284 * gain), pairs(284 * gain, 426 * gain)};
}

}  // namespace

constexpr Dct8Weights kDct8Columns = dct8Weights(4);
constexpr Dct8Weights kDct8Rows = dct8Weights(1);
constexpr Dct4Weights kDct4 = {pairs(16384, 0),     pairs(15137, -6270),  pairs(8697, -1730),
                               pairs(20995, -4176), pairs(11893, -17799), pairs(-4926, 7373)};
constexpr WeightPairs kTurn = {{-1, -1, -1, -1, 1, 1, 1, 1, -1, -1, -1, -1, 1, 1, 1, 1}};
constexpr WeightPairs kRotation = pairs(-19200, -19200);
constexpr WeightPairs kOnes = pairs(1, 1);
constexpr WeightPairs kRounding = pairs(8 + 128 * 16, 8 + 128 * 16);

}  // namespace jpeg
