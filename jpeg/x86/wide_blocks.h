// What becomes of a block in the fast engines, by reduction. Each kind offers
//   kStep                                        samples of a block's side
//   Block                                        what read() leaves to write()
//   setUp(quant)                                 prepares a component
//   read(reader, tables, component, out, block)  takes the block's symbols
//   write(block, component, out)                 the samples, if read() did not write them already
// setUp() and read() return false when the portable engine has to go on. All blocks of an MCU are read before
// the first is transformed: vectors loaded right behind the stores of their words would wait for them.
#pragma once
#include <cstring>

#include "jpeg/inverse_dct.h"
#include "jpeg/x86/block_reader.h"
#include "jpeg/x86/wide_dct.h"

namespace jpeg {

// Reductions 1 and 2: all coefficients, through an inverse DCT.
template <class Lanes, uint32_t kSide>
class TransformedWide {
  public:
    static constexpr uint32_t kStep = kSide;

    bool setUp(const uint32_t* quant) {
        for (uint32_t k = 0; k < 64; ++k) {
            const uint32_t step = quant[kZigzag[k]];
            if (step > 255) return false;  // scaled by an earlier scan
            m_quant[kBlockLayout.word[k]] = static_cast<int16_t>(step);
            m_steps[k] = static_cast<int32_t>(step);
        }
        return true;
    }

    struct Block {
        alignas(32) int16_t words[64];  // by the block's layout
        bool flat;                      // no AC coefficients, and no words
        uint32_t mean;                  // the dequantised DC coefficient then
    };

    bool read(BlockReader<Lanes>& reader, const LookTables& tables, ComponentWalk& component, uint8_t*,
              Block& block) const {
        if (!reader.dc(tables, component.predictor)) return false;
        block.flat = reader.endsAtOnce(tables);
        if (block.flat) {
            block.mean = static_cast<uint32_t>(component.predictor) * component.quant[0];
            return true;
        }
        Coefficients coefficients(block.words, m_steps);
        coefficients.storeLarge(0, component.predictor);
        return reader.ac(tables, coefficients) && !coefficients.tooLarge();
    }

    void write(const Block& block, const ComponentWalk& component, uint8_t* out) const {
        if (block.flat) {
            fill(out, component.stride, kSide == 8 ? flatSample8(block.mean) : flatSample4(block.mean));
            return;
        }
        const auto coefficients = Dct::dequantise(block.words, m_quant);
        if (Dct::sumOfMagnitudes(coefficients) > kLargestSum) {
            writePlainly(block, component, out);
        } else if constexpr (kSide == 8) {
            Dct::inverse8(out, component.stride, coefficients);
        } else {
            Dct::inverse4(out, component.stride, coefficients);
        }
    }

  private:
    using Dct = WideDct<Lanes>;
    static constexpr int32_t kLargestSum = kSide == 8 ? kLargestSum8 : kLargestSum4;

    class Coefficients {
      public:
        Coefficients(int16_t* words, const int32_t* steps) : m_words(words), m_steps(steps) {
            const auto zero = Lanes::all16(0);
            for (uint32_t word = 0; word < 64; word += kGroupWords) Lanes::store(words + word, zero);
        }
        // Six bits: small enough with any step.
        void store(uint32_t k, int32_t value) { m_words[kBlockLayout.word[k]] = static_cast<int16_t>(value); }
        void storeLarge(uint32_t k, int32_t value) {
            const int64_t product = int64_t{value} * m_steps[k];
            m_tooLarge |= product > kLargestProduct || product < -kLargestProduct;
            store(k, value);
        }
        bool tooLarge() const { return m_tooLarge; }

      private:
        static constexpr int64_t kLargestProduct = 8191;
        int16_t* m_words;
        const int32_t* m_steps;
        bool m_tooLarge = false;
    };

    static void writePlainly(const Block& block, const ComponentWalk& component, uint8_t* out) {
        int32_t coefficients[64];
        for (uint32_t k = 0; k < 64; ++k) coefficients[kZigzag[k]] = block.words[kBlockLayout.word[k]];
        const InverseDct transform = kSide == 8 ? inverseDct8 : inverseDct4;
        transform(out, coefficients, component.quant, component.stride);
    }

    static void fill(uint8_t* out, uint32_t stride, uint8_t sample) {
        for (uint32_t row = 0; row < kSide; ++row, out += stride) std::memset(out, sample, kSide);
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

    struct Block {};

    bool read(BlockReader<Lanes>& reader, const LookTables& tables, ComponentWalk& component, uint8_t* out,
              Block&) const {
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

    void write(const Block&, const ComponentWalk&, uint8_t*) const {}

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
        void storeLarge(uint32_t k, int32_t value) { store(k, value); }
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

    bool setUp(const uint32_t*) { return true; }

    struct Block {};

    bool read(BlockReader<Lanes>& reader, const LookTables& tables, ComponentWalk& component, uint8_t* out,
              Block&) const {
        if (!reader.dc(tables, component.predictor) || !reader.skipAc(tables)) return false;
        *out = blockMean(component.predictor, component.quant[0]);
        return true;
    }

    void write(const Block&, const ComponentWalk&, uint8_t*) const {}
};

}  // namespace jpeg
