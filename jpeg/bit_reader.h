// The bits of the stream, first bit first, from a chunk that is refilled as it runs out.
#pragma once
#include "jpeg/decoder.h"

namespace jpeg {

// Copies the next compressed bytes into the chunk; returns how many, 0 at the end of the input.
uint32_t fillChunk(DecoderContext& context);

// Takes the reader's state out of the context for its own lifetime, so that it can stay in registers.
//
// A byte 0xFF is always read together with its successor. A zero there is stuffing and is dropped; anything
// else enters the reservoir too, so a marker arrives as its two bytes and never stops the reader.
class BitReader {
  public:
    explicit BitReader(DecoderContext& context)
        : m_context(context),
          m_cursor(context.cursors.chunkCursor),
          m_end(context.cursors.chunkEnd),
          m_buffer(context.bitBuffer),
          m_count(context.bitCount) {}
    ~BitReader() {
        m_context.cursors.chunkCursor = m_cursor;
        m_context.cursors.chunkEnd = m_end;
        m_context.bitBuffer = m_buffer;
        m_context.bitCount = m_count;
    }
    BitReader(const BitReader&) = delete;
    BitReader& operator=(const BitReader&) = delete;

    // Makes at least `bits` (at most 16) available; false: the input ended.
    bool need(int32_t bits) {
        while (m_count < bits) {
            if (!pull()) return false;
        }
        return true;
    }

    // Of the bits made available by need().
    uint32_t peek(int32_t bits) const { return (m_buffer >> (m_count - bits)) & ((1u << bits) - 1); }
    void drop(int32_t bits) { m_count -= bits; }
    uint32_t take(int32_t bits) {
        const uint32_t value = peek(bits);
        drop(bits);
        return value;
    }

    // Drops what is left of a partly used byte.
    void alignToByte() { m_count &= ~7; }

    // Whole bytes, the high one first; false: the input ended.
    bool byte(uint32_t& value) { return number(8, value); }
    bool word(uint32_t& value) {
        uint32_t high = 0;
        if (!byte(high) || !byte(value)) return false;
        value |= high << 8;
        return true;
    }

    // The next byte as it stands in the stream, past the reservoir (which must be empty).
    bool rawByte(uint32_t& value) {
        if (m_cursor == m_end && !refill()) return false;
        value = *m_cursor++;
        return true;
    }

    // Moves on by `count` bytes as they stand in the stream; false: the input ended.
    bool skipRaw(uint32_t count) {
        while (count != 0) {
            if (m_cursor == m_end && !refill()) return false;
            const uint32_t held = static_cast<uint32_t>(m_end - m_cursor);
            const uint32_t step = count < held ? count : held;
            m_cursor += step;
            count -= step;
        }
        return true;
    }

  private:
    bool number(int32_t bits, uint32_t& value) {
        if (!need(bits)) return false;
        value = take(bits);
        return true;
    }

    bool refill() {
        const uint32_t held = fillChunk(m_context);
        m_cursor = m_context.inputChunk;
        m_end = m_cursor + held;
        return held != 0;
    }

    // Bits above the valid ones may be left over from bytes long taken; peek() masks them off.
    void append(uint32_t value) {
        m_buffer = m_buffer << 8 | value;
        m_count += 8;
    }

    bool pull() {
        uint32_t value = 0;
        if (!rawByte(value)) return false;
        append(value);
        if (value != 0xFF) return true;
        if (!rawByte(value)) return false;
        if (value != 0) append(value);
        return true;
    }

    DecoderContext& m_context;
    const uint8_t* m_cursor;
    const uint8_t* m_end;
    uint32_t m_buffer;
    int32_t m_count;
};

}  // namespace jpeg
