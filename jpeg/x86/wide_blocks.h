// What becomes of a block in the fast engines, by reduction. All kinds have
//   kStep         samples of a block's side
//   setUp(quant)  prepares a component; false: its table is not for us
// Those that need every coefficient read all blocks of an MCU, then write all: vectors that are loaded right
// behind the stores of their words would wait for them. They have a Block, setUpBlocks(), clear() and
// write(). The others have decode(), which does both at once. What returns false leaves the MCU to the
// portable engine.
#pragma once
#include <cstring>

#include "jpeg/inverse_dct.h"
#include "jpeg/x86/mcu_reader.h"
#include "jpeg/x86/wide_dct.h"

namespace jpeg {

// Reductions 1 and 2: all coefficients, through an inverse DCT.
template <class Lanes, uint32_t kSide>
class TransformedWide {
  public:
    static constexpr uint32_t kStep = kSide;
    static constexpr bool kReadsMcus = true;

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

    using Block = ReadBlock;

    void setUpBlocks(Block* blocks, uint32_t count, const LookTables& tables) const {
        for (; count != 0; --count, ++blocks) {
            blocks->start = tables.start->entries;
            blocks->rest = tables.ac->entries;
            blocks->dcTable = tables.dcTable;
            blocks->acTable = tables.acTable;
            blocks->quant = m_steps;
            blocks->place = 0;
        }
    }

    static void clear(Block& block) {
        const auto zero = Lanes::all16(0);
        for (uint32_t word = 0; word < 64; word += kGroupWords) Lanes::store(block.words + word, zero);
    }

    // The first word holds the difference to the block before.
    bool write(Block& block, ComponentWalk& component, uint8_t* out) const {
        component.predictor = wrappedSum(component.predictor, block.words[0]);
        auto coefficients = Dct::dequantise(block.words, m_quant);
        if (McuReader<Lanes>::tooLarge(component.predictor, m_steps[0])) return false;
        Dct::addMean(coefficients, component.predictor * m_steps[0]);
        if (Dct::sumOfMagnitudes(coefficients) > kLargestSum) {
            block.words[0] = static_cast<int16_t>(component.predictor);
            writePlainly(block, component, out);
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

    static void writePlainly(const Block& block, const ComponentWalk& component, uint8_t* out) {
        int32_t coefficients[64];
        for (uint32_t k = 0; k < 64; ++k) coefficients[kZigzag[k]] = block.words[kBlockLayout.word[k]];
        const InverseDct transform = kSide == 8 ? inverseDct8 : inverseDct4;
        transform(out, coefficients, component.quant, component.stride);
    }

    alignas(32) int16_t m_quant[64];  // by the block's layout
    int32_t m_steps[64];              // in the stream's order
};

// Reduction 4: the four samples are sums of the coefficients with prescaled weights. They are taken while the
// coefficients come in and wrap at 32 bits, in any order, as those of inverseDct2() do; there is no block.
template <class Lanes>
class SummedWide {
  public:
    static constexpr uint32_t kStep = 2;
    static constexpr bool kReadsMcus = false;

    bool setUp(const uint32_t* quant) {
        for (uint32_t k = 0; k < 64; ++k) {
            const uint32_t row = kZigzag[k] / 8;
            const uint32_t column = kZigzag[k] % 8;
            for (uint32_t sample = 0; sample < 4; ++sample) {
                const int32_t sign = signOf(row, sample / 2) * signOf(column, sample % 2);
                m_weights[k][sample] = static_cast<uint32_t>(sign) * quant[kZigzag[k]];
            }
        }
        return true;
    }

    bool decode(BlockReader<Lanes>& reader, const LookTables& tables, ComponentWalk& component,
                uint8_t* out) const {
        if (!reader.dc(tables, component.predictor)) return false;
        Sums sums(m_weights);
        sums.store(0, component.predictor);
        if (!reader.ac(tables, sums)) return false;
        const Half values = _mm_srai_epi32(sums.values(), 20);
        const Half words = _mm_add_epi16(_mm_packs_epi32(values, values), _mm_set1_epi16(128));
        const uint32_t bytes = static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(words, words)));
        storePair(out, bytes);
        storePair(out + component.stride, bytes >> 16);
        return true;
    }

  private:
    using Half = typename Lanes::Half;

    // How a coefficient of this vertical or horizontal frequency enters the first or second sample.
    static int32_t signOf(uint32_t frequency, uint32_t second) {
        if (frequency == 0) return 1;
        if (frequency % 2 == 0) return 0;
        const bool negative = frequency == 3 || frequency == 7;
        return negative != (second != 0) ? -1 : 1;
    }

    class Sums {
      public:
        explicit Sums(const uint32_t (*weights)[4]) : m_weights(weights), m_sums(_mm_setzero_si128()) {}
        void store(uint32_t k, int32_t value) {
            const Half weights = _mm_load_si128(reinterpret_cast<const Half*>(m_weights[k]));
            m_sums = _mm_add_epi32(m_sums, _mm_mullo_epi32(_mm_set1_epi32(value), weights));
        }
        Half values() const { return m_sums; }

      private:
        const uint32_t (*m_weights)[4];
        Half m_sums;
    };

    static void storePair(uint8_t* out, uint32_t bytes) {
        const uint16_t pair = static_cast<uint16_t>(bytes);
        std::memcpy(out, &pair, sizeof pair);
    }

    alignas(16) uint32_t m_weights[64][4];
};

// Reduction 8: the mean alone.
template <class Lanes>
class MeanWide {
  public:
    static constexpr uint32_t kStep = 1;
    static constexpr bool kReadsMcus = false;

    bool setUp(const uint32_t*) { return true; }

    bool decode(BlockReader<Lanes>& reader, const LookTables& tables, ComponentWalk& component,
                uint8_t* out) const {
        if (!reader.dc(tables, component.predictor) || !reader.skipAc(tables)) return false;
        *out = blockMean(component.predictor, component.quant[0]);
        return true;
    }
};

}  // namespace jpeg
