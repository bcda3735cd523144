// The reader of the scalar engine: a word of bits, the next one highest, filled two bytes at a time.
//
// It gives up (begin() or drop() is false) where the data are not ordinary: at a byte 0xFF that no stuffed
// zero follows, and close to the end of the chunk. The portable reader takes over there, from the start of
// the MCU.
#pragma once
#include "jpeg/decoder.h"

namespace jpeg {

class ScalarBits {
  public:
    // Everything that the context's reader holds, and what follows it in the chunk.
    explicit ScalarBits(const DecoderContext& context)
        : m_held(context.bitCount == 0 ? 0 : context.bitBuffer << (32 - context.bitCount)),
          m_spare(context.bitCount - kAlwaysHeld),
          m_cursor(context.cursors.chunkCursor),
          m_last(context.cursors.chunkEnd - 1) {}

    // Hands the bits back: whole units (a byte, or 0xFF with its zero) are put back into the chunk, but none
    // that `context` held before, which may be a marker's. Fewer than 8 bits stay, or what the portable
    // reader would hold there.
    void putBack(DecoderContext& context) const {
        const uint8_t* const start = context.cursors.chunkCursor;
        const uint8_t* cursor = m_cursor;
        int32_t count = m_spare + kAlwaysHeld;
        for (; count >= 8 && cursor != start; count -= 8) {
            const bool stuffed = cursor - start >= 2 && cursor[-1] == 0 && cursor[-2] == 0xFF;
            cursor -= stuffed ? 2 : 1;
        }
        context.cursors.chunkCursor = cursor;
        context.bitCount = count;
        context.bitBuffer = count == 0 ? 0 : m_held >> (32 - count);
    }

    // Before anything else: from here on, kAlwaysHeld bits can be looked at. False: not ordinary.
    bool begin() { return m_spare >= 0 || pull(); }

    uint32_t peek(uint32_t bits) const { return m_held >> (32 - bits); }

    // At most kAlwaysHeld bits. False: not ordinary.
    bool drop(uint32_t bits) {
        m_held <<= bits;
        m_spare -= static_cast<int32_t>(bits);
        return m_spare >= 0 || pull();
    }

  private:
    static constexpr int32_t kAlwaysHeld = 16;

    bool pull() {
        if (m_cursor >= m_last) return false;
        const uint32_t first = m_cursor[0];
        const uint32_t second = m_cursor[1];
        if (first == 0xFF || second == 0xFF) return pullUnits();
        m_held += (first * 256 + second) << -m_spare;
        m_spare += 16;
        m_cursor += 2;
        return true;
    }

    // The same unit by unit.
    bool pullUnits() {
        for (; m_spare < 0; m_spare += 8) {
            if (m_cursor >= m_last) return false;
            const uint32_t value = *m_cursor++;
            if (value == 0xFF && *m_cursor++ != 0) return false;
            m_held |= value << (8 - m_spare);
        }
        return true;
    }

    uint32_t m_held;
    int32_t m_spare;  // bits held beyond kAlwaysHeld
    const uint8_t* m_cursor;
    const uint8_t* m_last;  // of the chunk: the second of two bytes
};

}  // namespace jpeg
