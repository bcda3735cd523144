// The kernels of one fast engine, for tests: compiled for its instruction set in a file of its own.
#pragma once
#include <cstdint>

struct WideKernels {
    const char* engine;  // its name in scanEngines()
    // As the portable transforms; false: out of the bounds under which the kernel is exact.
    using Transform = bool (*)(uint8_t* out, const int16_t* coefficients, const int16_t* quant,
                               uint32_t stride);
    Transform inverse8;
    Transform inverse4;
    // 16 pixels; channels are not clamped.
    void (*channels)(int16_t* red, int16_t* green, int16_t* blue, const uint8_t* y, const uint8_t* cb,
                     const uint8_t* cr);
};

extern const WideKernels kSseKernels;
extern const WideKernels kAvx2Kernels;
