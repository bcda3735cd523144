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
    const LookTable* dc;
    const LookTable* ac;
    const SkipTable* skip;
    const LookTable* start;  // of whole blocks
};

template <class Lanes>
LookTables lookTables(const DecoderContext& context, const ComponentWalk& component) {
    const auto dc = component.dcTable - &context.huffman[kDcSlot];
    const auto ac = component.acTable - &context.huffman[kAcSlot];
    return {component.dcTable, component.acTable, &kDcLooks[dc],
            &kAcLooks[ac],     &kAcSkips[ac],     &kStartLooks[dc][ac]};
}

// So many bits must be left behind an MCU: the portable reader wants 8 for each symbol, however short.
inline constexpr int32_t kBitsBehind = 8;

// Predictors of damaged streams may add up past 32 bits.
constexpr int32_t wrappedSum(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

inline constexpr uint32_t kLooksPerRefill = 5;  // with the one for the DC difference
static_assert(kLooksPerRefill * kLookBits <= 56);
inline constexpr uint32_t kSkipsPerRefill = 2;  // besides that one; 10 bits of a magnitude may lie beyond
static_assert(kLookBits + kSkipsPerRefill * (kLookBits + 10) <= 56);

template <class Lanes>
class BlockReader : public WordReader<Lanes> {
  public:
    using WordReader<Lanes>::WordReader;

    // Adds the next difference to the predictor; false: no such code.
    bool dc(const LookTables& tables, int32_t& predictor) {
        this->refill();
        const Look look = {tables.dc->entries[this->peek(kLookBits)]};
        int32_t difference = look.last();
        if (look.lastPlace() != Look::kNothingFits) {
            this->drop(look.length());
        } else {
            if (!longDc(*tables.dcTable, difference)) return false;
            this->refill();
        }
        predictor = wrappedSum(predictor, difference);
        return true;
    }

    // Takes the coefficients after dc(): sink.store(k, value) gets them, and zeros in between, in the
    // stream's order. False: no such code.
    template <class Sink>
    bool ac(const LookTables& tables, Sink& sink) {
        for (uint32_t k = 1;; this->refill()) {
            for (uint32_t count = 1; count < kLooksPerRefill; ++count) {
                const Look look = {tables.ac->entries[this->peek(kLookBits)]};
                const uint32_t last = k + look.lastPlace();
                // What comes after the 63rd coefficient is the next block's: near it, one by one.
                if (last > 62) {
                    const Outcome outcome = longAc(*tables.acTable, sink, k);
                    if (outcome == kGoOn) break;
                    return outcome == kBlockEnds;
                }
                this->drop(look.length());
                sink.store(k + look.first().place(), look.first().value());
                sink.store(last, look.last());
                if (look.ends()) return true;
                k = last + 1;
            }
        }
    }

    // The same without looking at the coefficients.
    bool skipAc(const LookTables& tables) {
        struct {
            void store(uint32_t, int32_t) {}
        } forget;
        for (uint32_t k = 1;; this->refill()) {
            for (uint32_t count = 0; count < kSkipsPerRefill; ++count) {
                const uint32_t look = tables.skip->entries[this->peek(kLookBits)];
                const uint32_t next = k + (look >> 8 & 63);
                if (next > 63) {
                    const Outcome outcome = longAc(*tables.acTable, forget, k);
                    if (outcome == kGoOn) break;
                    return outcome == kBlockEnds;
                }
                this->drop(look & 0xFF);
                if ((look & kSkipEndBit) != 0) return true;
                k = next;
            }
        }
    }

  protected:
    enum Outcome { kGoOn, kBlockEnds, kBadCode };

    // A DC difference of any length; false: no such code.
    bool longDc(const HuffmanTable& table, int32_t& difference) {
        this->refill();
        uint32_t size = 0;
        if (!symbol(table, size)) return false;
        difference = magnitude(size);
        return true;
    }

    // One AC symbol of any length, as decodeAc() takes it.
    template <class Sink>
    Outcome longAc(const HuffmanTable& table, Sink& sink, uint32_t& k) {
        this->refill();
        uint32_t symbolValue = 0;
        if (!symbol(table, symbolValue)) return kBadCode;
        const uint32_t run = symbolValue >> 4;
        const uint32_t size = symbolValue & 15;
        if (size != 0) {
            k += run;
            const int32_t value = magnitude(size);
            if (k < 64) sink.store(k, value);
            ++k;
        } else if (run != 0) {
            k += 16;
        } else {
            return kBlockEnds;
        }
        return k < 64 ? kGoOn : kBlockEnds;
    }

  private:
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
