// A block at reductions 1 and 2 in the fast engines: from the coefficients, as they were read, to samples.
#pragma once
#include "jpeg/inverse_dct.h"
#include "jpeg/x86/mcu_reader.h"
#include "jpeg/x86/wide_dct.h"

namespace jpeg {

// Of one component.
template <class Lanes, uint32_t kSide>
class WideTransform {
  public:
    // False: this table is not for us.
    bool setUp(const uint32_t* quant) {
        for (uint32_t k = 0; k < 64; ++k) {
            const uint32_t step = quant[kZigzag[k]];
            // Scaled by an earlier scan; or such that no product tells whether there is a coefficient.
            if (step > 255 || step == 0) return false;
            m_quant[kBlockLayout.word[k]] = static_cast<int16_t>(step);
            m_steps[k] = static_cast<int32_t>(step);
        }
        m_quant[0] = 0;  // the DC coefficient comes in dequantised
        return true;
    }

    // In the stream's order.
    const int32_t* steps() const { return m_steps; }

    static void clear(ReadBlock& block) {
        const auto zero = Lanes::all16(0);
        for (uint32_t word = 0; word < 64; word += kGroupWords) Lanes::store(block.words + word, zero);
    }

    // Leaves the block cleared for the next that is read. Its first word holds the difference to the block
    // before. False: the MCU is for the portable engine.
    bool write(ReadBlock& block, ComponentWalk& component, uint8_t* out) const {
        component.predictor = wrappedSum(component.predictor, block.words[0]);
        auto coefficients = Dct::dequantise(block.words, m_quant);
        clear(block);
        if (McuReader<Lanes>::tooLarge(component.predictor, m_steps[0])) return false;
        Dct::addMean(coefficients, component.predictor * m_steps[0]);
        if (Dct::sumOfMagnitudes(coefficients) > kLargestSum) {
            writePlainly(coefficients, out, component.stride);
        } else if constexpr (kSide == 8) {
            Dct::inverse8(out, component.stride, coefficients);
        } else {
            Dct::inverse4(out, component.stride, coefficients);
        }
        return true;
    }

  private:
    using Dct = WideDct<Lanes>;
    static constexpr int32_t kLargestSum = kSide == 8 ? kLargestSum8 : kLargestSum4;

    static void writePlainly(const typename Dct::Block& block, uint8_t* out, uint32_t stride) {
        int16_t words[64];
        Dct::store(words, block);
        int32_t coefficients[64];
        uint32_t steps[64];
        for (uint32_t k = 0; k < 64; ++k) {
            coefficients[kZigzag[k]] = words[kBlockLayout.word[k]];
            steps[k] = 1;
        }
        const InverseDct transform = kSide == 8 ? inverseDct8 : inverseDct4;
        transform(out, coefficients, steps, stride);
    }

    alignas(32) int16_t m_quant[64];  // by the block's layout
    int32_t m_steps[64];
};

}  // namespace jpeg
