// Reads all blocks of an MCU in one go, for the kinds that need every coefficient: one loop over the looks,
// in which an end bit exchanges table, words and place for those of the next step. A step is the DC part of a
// block or the rest of it.
#pragma once
#include "jpeg/x86/block_layout.h"
#include "jpeg/x86/block_reader.h"

namespace jpeg {

struct ReadStep {
    const uint32_t* looks;
    int16_t* words;             // of the block, by its layout
    uint32_t place;             // that comes first: 0, 1, or kPlaceAtEnd
    const HuffmanTable* table;  // for what no look holds
    const int32_t* quant;       // in the stream's order
};
inline constexpr uint32_t kPlaceAtEnd = 64;  // behind the last block: no look fits

template <class Lanes>
class McuReader : public BlockReader<Lanes> {
  public:
    // Coefficients whose product with the quantisation step is larger are left to the portable engine. The
    // 6 bits of those in a look never are.
    static bool tooLarge(int32_t value, int32_t step) {
        constexpr int32_t kLargest = 8191;
        const int64_t product = int64_t{value} * step;
        return product > kLargest || product < -kLargest;
    }

    using BlockReader<Lanes>::BlockReader;

    // The words must be zero; the first of each block gets the DC difference. False: only the portable engine
    // can go on.
    bool mcu(const ReadStep* step) {
        for (uint32_t k = 0;;) {
            this->refill();
            const uint32_t* looks = step->looks;
            int16_t* words = step->words;
            for (uint32_t count = 0; count < kLooksPerRefill; ++count) {
                const Look look = {looks[this->peek(kLookBits)]};
                const uint32_t last = k + look.lastPlace();
                // What comes after the 63rd coefficient is the next block's: near it, one by one.
                if (__builtin_expect(last > 62, 0)) {
                    if (k == kPlaceAtEnd) return true;
                    if (!longSymbol(step, k)) return false;
                    break;
                }
                this->drop(look.length());
                words[kBlockLayout.word[k + look.firstPlace()]] = static_cast<int16_t>(look.first());
                words[kBlockLayout.word[last]] = static_cast<int16_t>(look.last());
                k = last + 1;
                if (!look.ends()) continue;
                ++step;
                looks = step->looks;
                words = step->words;
                k = step->place;
            }
        }
    }

  private:
    struct Words {
        const ReadStep& step;
        bool refused;
        void store(uint32_t k, int32_t value) {
            refused |= tooLarge(value, step.quant[k]);
            step.words[kBlockLayout.word[k]] = static_cast<int16_t>(value);
        }
    };

    bool longSymbol(const ReadStep*& step, uint32_t& k) {
        if (k == 0) {
            int32_t difference = 0;
            if (!this->longDc(*step->table, difference)) return false;
            step->words[0] = static_cast<int16_t>(difference);
        } else {
            Words words = {*step, false};
            const auto outcome = this->longAc(*step->table, words, k);
            if (outcome == this->kBadCode || words.refused) return false;
            if (outcome == this->kGoOn) return true;
        }
        ++step;
        k = step->place;
        return true;
    }
};

}  // namespace jpeg
