// Blocks at reductions 4 and 8 in the fast engines: what becomes of the coefficients is known while they come
// in. Both kinds have
//   kStep         samples of a block's side
//   setUp(quant)  prepares a component
//   decode()      reads a block and writes its samples; false: the MCU is for the portable engine
#pragma once
#include <cstring>

#include "jpeg/inverse_dct.h"
#include "jpeg/x86/block_reader.h"

namespace jpeg {

// Reduction 4: the four samples are sums of the coefficients with prescaled weights. They are taken while the
// coefficients come in and wrap at 32 bits, in any order, as those of inverseDct2() do; there is no block.
template <class Lanes>
class SummedWide {
  public:
    static constexpr uint32_t kStep = 2;

    void setUp(const uint32_t* quant) {
        for (uint32_t k = 0; k < 64; ++k) {
            const uint32_t row = kZigzag[k] / 8;
            const uint32_t column = kZigzag[k] % 8;
            for (uint32_t sample = 0; sample < 4; ++sample) {
                const int32_t sign = signOf(row, sample / 2) * signOf(column, sample % 2);
                m_weights[k][sample] = static_cast<uint32_t>(sign) * quant[kZigzag[k]];
            }
        }
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

    void setUp(const uint32_t*) {}

    bool decode(BlockReader<Lanes>& reader, const LookTables& tables, ComponentWalk& component,
                uint8_t* out) const {
        if (!reader.dc(tables, component.predictor) || !reader.skipAc(tables)) return false;
        *out = blockMean(component.predictor, component.quant[0]);
        return true;
    }
};

}  // namespace jpeg
