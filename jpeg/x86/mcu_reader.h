// Reads all blocks of some MCUs in one go, for the kinds that need every coefficient: one loop over the
// looks, in which an end bit exchanges block, table and place for those of the next block, without a branch.
#pragma once
#include "jpeg/x86/block_layout.h"
#include "jpeg/x86/block_reader.h"

namespace jpeg {

// A block that is read, by its layout, and what reads it.
struct alignas(32) ReadBlock {
    int16_t words[64];
    const uint32_t* start;        // looks at its start
    const uint32_t* rest;         // and behind it
    const HuffmanTable* dcTable;  // for what no look holds
    const HuffmanTable* acTable;
    const int32_t* quant;  // in the stream's order
    uint64_t place;        // that comes first: 0, or kPlaceAtEnd
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
    bool mcu(ReadBlock* block) {
        uint64_t k = 0;
        const uint32_t* looks = block->start;
        for (;;) {
            this->refill();
            for (uint32_t count = 0; count < kLooksPerRefill; ++count) {
                const Look look = {looks[this->peek(kLookBits)]};
                const uint64_t last = k + look.lastPlace();
                // What comes after the 63rd coefficient is the next block's: near it, one by one.
                if (__builtin_expect(last > 62, 0)) {
                    if (!this->settle()) return false;
                    if (k == kPlaceAtEnd) return true;
                    if (!longSymbol(block, k)) return false;
                    looks = k == block->place ? block->start : block->rest;
                    break;
                }
                this->dropRoughly(look.entry);
                block->words[kBlockLayout.word[k + look.firstPlace()]] = static_cast<int16_t>(look.first());
                block->words[kBlockLayout.word[last]] = static_cast<int16_t>(look.last());
                k = last + 1;
                looks = block->rest;
                // Whether the block ends here is hard to guess; the compiler would make it a branch.
                asm("test %[entry], %[entry]\n\t"
                    "cmovs %[nextLooks], %[looks]\n\t"
                    "cmovs %[nextPlace], %[place]\n\t"
                    "cmovs %[nextBlock], %[block]"
                    : [looks] "+r"(looks), [place] "+r"(k), [block] "+r"(block)
                    : [entry] "r"(look.entry), [nextLooks] "rm"(block[1].start),
                      [nextPlace] "rm"(block[1].place), [nextBlock] "r"(block + 1)
                    : "cc");
            }
            if (!this->settle()) return false;
        }
    }

  private:
    struct Words {
        ReadBlock& block;
        bool refused;
        void store(uint32_t k, int32_t value) {
            refused |= tooLarge(value, block.quant[k]);
            block.words[kBlockLayout.word[k]] = static_cast<int16_t>(value);
        }
    };

    bool longSymbol(ReadBlock*& block, uint64_t& k) {
        if (k == 0) {
            int32_t difference = 0;
            if (!this->longDc(*block->dcTable, difference)) return false;
            block->words[0] = static_cast<int16_t>(difference);
            k = 1;
            return true;
        }
        Words words = {*block, false};
        uint32_t place = static_cast<uint32_t>(k);
        const auto outcome = this->longAc(*block->acTable, words, place);
        k = place;
        if (outcome == this->kBadCode || words.refused) return false;
        if (outcome == this->kGoOn) return true;
        ++block;
        k = block->place;
        return true;
    }
};

}  // namespace jpeg
