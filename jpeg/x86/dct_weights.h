// Constants of the fast engines' inverse DCTs, as vectors. They stand in memory, where an instruction can
// take them from: the compiler would build most of them anew for every block.
#pragma once
#include <cstdint>

namespace jpeg {

// Weights for two neighbouring words, all over a vector.
struct alignas(32) WeightPairs {
    int16_t words[16];
};

// One pass of the 8-point transform, named after its terms in inverse_dct.cpp.
struct Dct8Weights {
    WeightPairs a0, a1;          // of rows 0 and 4
    WeightPairs b0, b1;          // of rows 2 and 6
    WeightPairs p0, p3, p1, p2;  // two of rows 1 and 7, two of rows 5 and 3
};
extern const Dct8Weights kDct8Columns;  // with the gain of 4
extern const Dct8Weights kDct8Rows;

// A pass of the 4-point transform.
struct Dct4Weights {
    WeightPairs t0;  // of rows 0 and 4
    WeightPairs t2;  // of rows 2 and 6
    WeightPairs oddA17, oddB17;
    WeightPairs oddA53, oddB53;
};
extern const Dct4Weights kDct4;

extern const WeightPairs kOnes;
extern const WeightPairs kTurn;      // -1 for the first 64 bits of each half, 1 for the others
extern const WeightPairs kRotation;  // by 45 degrees
extern const WeightPairs kRounding;  // half of a sixteenth's unit, and the centre in sixteenths

}  // namespace jpeg
