// Reads all blocks of some MCUs in one go, for those who need every coefficient: one loop over the looks, in
// which an end bit exchanges block, table and place for those of the next block, without a branch.
#pragma once
#include "jpeg/x86/block_layout.h"
#include "jpeg/x86/block_reader.h"

namespace jpeg {

// A block that is read, by its layout, and what reads it. Its size is a multiple of the end bit of a look,
// which takes the reader from one to the next.
struct alignas(2 * Look::kEnds) ReadBlock {
    int16_t words[64];
    const uint32_t* start;        // looks at its start
    const uint32_t* rest;         // and behind it
    const HuffmanTable* dcTable;  // for what no look holds
    const HuffmanTable* acTable;
    const int32_t* steps;  // of quantisation, in the stream's order
    uint64_t place;        // that comes first: 0, or kPlaceAtEnd

    void setUp(const LookTables& tables, const int32_t* quantSteps) {
        start = tables.start->entries;
        rest = tables.ac->entries;
        dcTable = tables.dcTable;
        acTable = tables.acTable;
        steps = quantSteps;
        place = 0;
    }
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

    // Blocks from `block` to the one whose place is kPlaceAtEnd. Their words must be zero; the first of each
    // gets the DC difference. meanwhile() is called about once for every block. False: only the portable
    // engine can go on.
    template <class Meanwhile>
    bool mcus(ReadBlock* block, Meanwhile meanwhile) {
        uint64_t k = 0;
        const uint32_t* looks = block->start;
        for (;;) {
            this->refill();
            meanwhile();
            for (uint32_t count = 0; count < kLooksPerRefill; ++count) {
                uint64_t index = this->peek(kLookBits);
                const Look look = {looks[index]};
                const uint64_t last = k + look.lastPlace();
                // What comes after the 63rd coefficient is the next block's: near it, one by one.
                if (__builtin_expect(last > 62, 0)) {
                    if (!this->settle()) return false;
                    if (k == kPlaceAtEnd) return true;
                    if (!longSymbol(block, k)) return false;
                    looks = k == block->place ? block->start : block->rest;
                    break;
                }
                const FirstOfLook first = loadFirst(looks, index);
                this->dropRoughly(look.entry);
                block->words[kBlockLayout.word[k + first.place()]] = static_cast<int16_t>(first.value());
                block->words[kBlockLayout.word[last]] = static_cast<int16_t>(look.last());
                k = last + 1;
                looks = block->rest;
                // Whether the block ends here is hard to guess; the compiler would make it a branch.
                asm("testb %b[entry], %b[entry]\n\t"
                    "cmovs %[nextLooks], %[looks]\n\t"
                    "cmovs %[nextPlace], %[place]"
                    : [looks] "+r"(looks), [place] "+r"(k)
                    : [entry] "r"(look.entry), [nextLooks] "rm"(block[1].start),
                      [nextPlace] "rm"(block[1].place)
                    : "cc");
                block = nextIf(look.entry & Look::kEnds, block);
            }
            if (!this->settle()) return false;
        }
    }

  private:
    // From memory, where the units that shift, the busiest here, have no part in it.
    static FirstOfLook loadFirst(const uint32_t* looks, uint64_t index) {
        // Or the address would be computed once for both loads, and the next look would wait for it.
        asm("" : "+r"(index));
        return {reinterpret_cast<const int8_t*>(looks + index)[2]};
    }

    // The next block if the end bit is set.
    static ReadBlock* nextIf(uint64_t endBit, ReadBlock* block) {
        static_assert(sizeof(ReadBlock) % Look::kEnds == 0);
        return reinterpret_cast<ReadBlock*>(reinterpret_cast<char*>(block) +
                                            endBit * (sizeof(ReadBlock) / Look::kEnds));
    }

    struct Words {
        ReadBlock& block;
        bool refused;
        void store(uint32_t k, int32_t value) {
            refused |= tooLarge(value, block.steps[k]);
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
