// The bits of the stream, eight bytes at a time, for the fast engines.
#pragma once
#include <cstring>

#include "jpeg/bit_reader.h"

namespace jpeg {

// Reads the caller's own memory, in which the chunk and what follows it lie side by side. Only what is
// ordinary enters: bytes, and 0xFF with a stuffed zero. At a marker or at the end of the input it stays,
// zeros follow without counting, and has() tells.
//
// The template parameter keeps what is compiled for one instruction set apart from the others.
template <class Lanes>
class WordReader {
  public:
    explicit WordReader(const DecoderContext& context)
        : m_start(context.cursors.inputCursor - held(context)),
          m_cursor(m_start),
          m_end(context.cursors.inputCursor + context.cursors.inputRemaining),
          m_count(context.bitCount) {
        if (m_count > 0) m_bits = uint64_t{context.bitBuffer} << (64 - m_count);
    }

    // Puts the reader's state back into the context, with as few whole bytes held as can be given back.
    void putDown(DecoderContext& context) const {
        const uint8_t* cursor = m_cursor;
        int32_t count = m_count;
        for (; count >= 8 && cursor != m_start; count -= 8) cursor -= unitBefore(cursor);
        context.bitBuffer = count == 0 ? 0 : static_cast<uint32_t>(m_bits >> (64 - count));
        context.bitCount = count;
        skipTo(context, static_cast<uint32_t>(cursor - m_start));
    }

    // Makes at least 56 bits available, if there are as many.
    void refill() {
        if (m_end - m_cursor >= 8) {
            uint64_t word;
            std::memcpy(&word, m_cursor, sizeof word);
            if (!holdsFF(word)) {
                m_bits |= __builtin_bswap64(word) >> m_count;
                const int32_t taken = (63 - m_count) >> 3;
                m_cursor += taken;
                m_count += 8 * taken;
                return;
            }
        }
        const Position position = refilledByUnits(m_cursor, m_end, m_bits, m_count);
        m_cursor = position.cursor;
        m_bits = position.bits;
        m_count = position.count;
    }

    uint32_t peek(uint32_t bits) const { return static_cast<uint32_t>(m_bits >> (64 - bits)); }
    // By the lowest 6 bits of `bits`; the others may be anything in the shift, `count` is the clean number.
    void drop(uint32_t bits) {
        m_bits <<= bits & 63;
        m_count -= static_cast<int32_t>(bits);
    }
    // Like drop(), by the lowest 6 bits of `entry`; but only the lowest 7 bits of the count, which are enough
    // to tell it, are right until settle(). Bit 6 of `entry` is 0.
    void dropRoughly(uint32_t entry) {
        m_bits <<= entry & 63;
        m_count = static_cast<int32_t>(static_cast<uint32_t>(m_count) - entry);
    }
    // False: more bits were dropped than there are. Has to be asked before the missing ones are more than 64.
    bool settle() {
        m_count = static_cast<int32_t>(static_cast<uint32_t>(m_count) << 25) >> 25;
        return m_count >= 0;
    }
    // 0..16
    uint32_t take(uint32_t bits) {
        const uint32_t value = static_cast<uint32_t>(m_bits >> 48) >> (16 - bits);
        drop(bits);
        return value;
    }

    // Whether so many bits, at most 56, are left in the data.
    bool has(int32_t bits) {
        if (m_count < bits) refill();
        return m_count >= bits;
    }

  private:
    static uint32_t held(const DecoderContext& context) {
        return static_cast<uint32_t>(context.cursors.chunkEnd - context.cursors.chunkCursor);
    }

    // The lowest byte 0xFF is the one whose highest bit adding 1 to every byte takes away.
    static bool holdsFF(uint64_t word) {
        constexpr uint64_t kHigh = 0x8080808080808080;
        constexpr uint64_t kOnes = 0x0101010101010101;
        return (~(word + kOnes) & word & kHigh) != 0;
    }

    struct Position {
        const uint8_t* cursor;
        uint64_t bits;
        int32_t count;
    };

    // By value, so that the reader itself can stay in registers.
    __attribute__((noinline)) static Position refilledByUnits(const uint8_t* cursor, const uint8_t* end,
                                                              uint64_t bits, int32_t count) {
        while (count >= 0 && count < 56 && cursor != end) {
            const uint64_t value = *cursor;
            if (value == 0xFF) {
                if (end - cursor < 2 || cursor[1] != 0) break;
                ++cursor;
            }
            ++cursor;
            bits |= value << (56 - count);
            count += 8;
        }
        return {cursor, bits, count};
    }

    // Bytes of the unit that ends before `cursor`: what was read holds 0xFF with a zero only.
    uint32_t unitBefore(const uint8_t* cursor) const {
        return cursor - m_start >= 2 && cursor[-1] == 0 && cursor[-2] == 0xFF ? 2 : 1;
    }

    // Moves the chunk on, as the reading of `count` bytes would.
    static void skipTo(DecoderContext& context, uint32_t count) {
        while (count > held(context)) {
            count -= held(context);
            const uint32_t filled = fillChunk(context);
            context.cursors.chunkCursor = context.inputChunk;
            context.cursors.chunkEnd = context.inputChunk + filled;
        }
        context.cursors.chunkCursor += count;
    }

    const uint8_t* m_start;
    const uint8_t* m_cursor;
    const uint8_t* m_end;
    uint64_t m_bits = 0;
    int32_t m_count;
};

}  // namespace jpeg
