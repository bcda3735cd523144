// Writes entropy-coded data for tests: symbols of the typical Huffman tables, magnitudes, restart markers.
#pragma once
#include <array>
#include <cstdint>

#include "support/jpeg_stream.h"

// Coefficients of a block in natural order.
using Block = std::array<int32_t, 64>;

class ScanWriter {
  public:
    ScanWriter();

    // `count` bits, the highest first; a byte 0xFF is followed by a stuffed zero.
    ScanWriter& bits(uint32_t value, uint32_t count);
    // chroma: the second of the two DC or AC tables.
    ScanWriter& dc(bool chroma, int32_t difference);
    ScanWriter& ac(bool chroma, uint32_t run, int32_t value);
    ScanWriter& zeroRun(bool chroma) { return symbol(2 + chroma, 0xF0); }
    ScanWriter& endOfBlock(bool chroma) { return symbol(2 + chroma, 0x00); }
    ScanWriter& flatBlock(bool chroma, int32_t difference) {
        return dc(chroma, difference).endOfBlock(chroma);
    }
    // A whole block; its DC is coded as the difference to `predictor`, which it becomes.
    ScanWriter& block(bool chroma, const Block& block, int32_t& predictor);
    // Fills the last byte with 1-bits.
    ScanWriter& align();
    // As they are, unstuffed, after alignment.
    ScanWriter& raw(const Bytes& bytes);

    // The bytes so far, aligned.
    const Bytes& bytes() { return align().m_bytes; }

  private:
    struct Code {
        uint32_t value, length;
    };
    ScanWriter& symbol(uint32_t slot, uint32_t value);
    ScanWriter& magnitude(int32_t value, uint32_t size);

    Code m_codes[4][256];
    Bytes m_bytes;
    uint32_t m_held = 0;
    uint32_t m_count = 0;
};

// `mcus` MCUs of blocks without differences: the picture stays at its middle grey.
Bytes greyScan(uint32_t mcus, Sampling sampling);
