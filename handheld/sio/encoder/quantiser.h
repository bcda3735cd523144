// Forward transform and quantisation of one block.
#pragma once
#include <array>
#include <cstdint>

namespace sio {

inline constexpr int kCoefficients = 64;

// Steps 1..255 in zig-zag order, as they stand in a DQT segment.
using StepTable = std::array<uint8_t, kCoefficients>;

class CQuantiser {
  public:
    explicit CQuantiser(const StepTable& steps);

    // Transforms the 8 x 8 samples at `samples`, rows `stride` apart, and writes the 64 quantised
    // coefficients in zig-zag order. Returns the set of the non-zero ones: bit k for coefficient k.
    uint64_t code(const uint8_t* samples, int stride, int16_t* zigzag) const;

  private:
    // Factor for each coefficient, by column and then row: the transform leaves its own scale to this
    // multiplication.
    alignas(32) std::array<float, kCoefficients> m_factors;
};

}  // namespace sio
