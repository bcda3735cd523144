// Decodes the symbols of a block, several at a time.
#pragma once
#include "jpeg/huffman.h"
#include "jpeg/mcu_loop.h"
#include "jpeg/x86/symbol_tables.h"
#include "jpeg/x86/word_reader.h"

namespace jpeg {

// A component's tables; the looks are those of the same Huffman tables.
struct LookTables {
    const HuffmanTable* dcTable;
    const HuffmanTable* acTable;
    const DcLook* dc;
    const AcLook* ac;
    const AcSkip* skip;
};

inline constexpr uint32_t kLooksPerRefill = 4;
static_assert(kDcLookBits + kLooksPerRefill * kAcLookBits <= 56);
inline constexpr uint32_t kSkipsPerRefill = 2;
static_assert(kSkipsPerRefill * (kAcLookBits + 10) <= 56 - kDcLookBits);

template <class Lanes>
class BlockReader : public WordReader<Lanes> {
  public:
    using WordReader<Lanes>::WordReader;

    // Adds the next difference to the predictor; false: no such code.
    bool dc(const LookTables& tables, int32_t& predictor) {
        this->refill();
        const int32_t look = tables.dc->entries[this->peek(kDcLookBits)];
        int32_t difference = look >> 8;
        if ((look & 0xFF) != 0) {
            this->drop(look & 0xFF);
        } else {
            uint32_t size = 0;
            if (!symbol(*tables.dcTable, size)) return false;
            difference = magnitude(size);
            this->refill();
        }
        predictor =
            static_cast<int32_t>(static_cast<uint32_t>(predictor) + static_cast<uint32_t>(difference));
        return true;
    }

    // The block ends without a coefficient.
    bool endsAtOnce(const LookTables& tables) {
        const uint32_t look = tables.ac->entries[this->peek(kAcLookBits)];
        if ((look >> 8) != kEndOfBlockBit >> 8) return false;
        this->drop(look & 0xFF);
        return true;
    }

    // Takes the coefficients after dc(): sink.store(k, value) gets those of looks and zeros in between, in
    // the stream's order, values of 6 bits; sink.storeLarge(k, value) any other. False: no such code.
    template <class Sink>
    bool ac(const LookTables& tables, Sink& sink) {
        for (uint32_t k = 1;; this->refill()) {
            for (uint32_t looks = 0; looks < kLooksPerRefill; ++looks) {
                const uint32_t look = tables.ac->entries[this->peek(kAcLookBits)];
                const uint32_t last = k + (look >> 8 & 63);
                // What comes after the 63rd coefficient is the next block's: near it, one by one.
                if (last > 62) {
                    const Step step = single(*tables.acTable, sink, k);
                    if (step == kGoOn) break;
                    return step == kBlockEnds;
                }
                this->drop(look & 0xFF);
                sink.store(k + (look >> 16 & 15), static_cast<int32_t>(look << 6) >> 27);
                sink.store(last, static_cast<int32_t>(look) >> 26);
                if ((look & kEndOfBlockBit) != 0) return true;
                k = last + 1;
            }
        }
    }

    // The same without looking at the coefficients.
    bool skipAc(const LookTables& tables) {
        struct {
            void storeLarge(uint32_t, int32_t) {}
        } forget;
        for (uint32_t k = 1;; this->refill()) {
            for (uint32_t looks = 0; looks < kSkipsPerRefill; ++looks) {
                const uint32_t look = tables.skip->entries[this->peek(kAcLookBits)];
                const uint32_t next = k + (look >> 8 & 63);
                if (next > 63) {
                    const Step step = single(*tables.acTable, forget, k);
                    if (step == kGoOn) break;
                    return step == kBlockEnds;
                }
                this->drop(look & 0xFF);
                if ((look & kEndOfBlockBit) != 0) return true;
                k = next;
            }
        }
    }

  private:
    enum Step { kGoOn, kBlockEnds, kBadCode };

    // One symbol of any length, as decodeAc() takes it.
    template <class Sink>
    Step single(const HuffmanTable& table, Sink& sink, uint32_t& k) {
        this->refill();
        uint32_t symbolValue = 0;
        if (!symbol(table, symbolValue)) return kBadCode;
        const uint32_t run = symbolValue >> 4;
        const uint32_t size = symbolValue & 15;
        if (size != 0) {
            k += run;
            const int32_t value = magnitude(size);
            if (k < 64) sink.storeLarge(k, value);
            ++k;
        } else if (run != 0) {
            k += 16;
        } else {
            return kBlockEnds;
        }
        return k < 64 ? kGoOn : kBlockEnds;
    }

    // As decodeSymbol(), of 16 bits at once.
    bool symbol(const HuffmanTable& table, uint32_t& value) {
        const uint32_t bits = this->peek(16);
        if (const uint32_t known = table.lookLength[bits >> 8]; known != 0) {
            this->drop(known);
            value = table.lookValue[bits >> 8];
            return true;
        }
        for (uint32_t length = 9; length <= table.maxLength; ++length) {
            const int32_t code = static_cast<int32_t>(bits >> (16 - length));
            if (code > table.maxCode[length]) continue;
            this->drop(length);
            value = table.huffVal[(table.valOffset[length] + code) & 0xFF];
            return true;
        }
        return false;
    }

    int32_t magnitude(uint32_t size) { return extendSign(this->take(size), size); }
};

}  // namespace jpeg
