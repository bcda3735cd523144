// Fills WideKernels from the templates.
#pragma once
#include "jpeg/x86/wide_dct.h"
#include "jpeg/x86/wide_pixels.h"
#include "unit/jpeg/wide_kernels.h"

template <class Lanes>
struct WideKernelsOf {
    using Dct = jpeg::WideDct<Lanes>;

    // Coefficients in natural order, into the kernel's layout.
    static typename Dct::Block load(const int16_t* coefficients, const int16_t* quant) {
        alignas(32) int16_t words[64];
        alignas(32) int16_t steps[64];
        for (uint32_t k = 0; k < 64; ++k) {
            words[jpeg::kBlockLayout.word[k]] = coefficients[jpeg::kZigzag[k]];
            steps[jpeg::kBlockLayout.word[k]] = quant[jpeg::kZigzag[k]];
        }
        return Dct::dequantise(words, steps);
    }
    static bool inverse8(uint8_t* out, const int16_t* coefficients, const int16_t* quant, uint32_t stride) {
        const auto block = load(coefficients, quant);
        if (Dct::sumOfMagnitudes(block) > jpeg::kLargestSum8) return false;
        Dct::inverse8(out, stride, block);
        return true;
    }
    static bool inverse4(uint8_t* out, const int16_t* coefficients, const int16_t* quant, uint32_t stride) {
        const auto block = load(coefficients, quant);
        if (Dct::sumOfMagnitudes(block) > jpeg::kLargestSum4) return false;
        Dct::inverse4(out, stride, block);
        return true;
    }
    static void channels(int16_t* red, int16_t* green, int16_t* blue, const uint8_t* y, const uint8_t* cb,
                         const uint8_t* cr) {
        using Color = jpeg::WideColor<Lanes>;
        const auto widened = [](const uint8_t* from) {
            return Lanes::widen8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
        };
        const auto channels = Color::channels(widened(y), Color::shares(widened(cb), widened(cr)));
        Lanes::store(red, channels.red);
        Lanes::store(green, channels.green);
        Lanes::store(blue, channels.blue);
    }
    static constexpr WideKernels named(const char* engine) { return {engine, inverse8, inverse4, channels}; }
};
