#include "support/scan_writer.h"

#include <cstdlib>
#include <memory>

#include "jpeg/decoder.h"
#include "jpeg/zigzag.h"

namespace {

uint32_t sizeOf(int32_t value) {
    uint32_t size = 0;
    for (uint32_t magnitude = static_cast<uint32_t>(std::abs(value)); magnitude != 0; magnitude >>= 1) ++size;
    return size;
}

}  // namespace

ScanWriter::ScanWriter() : m_codes() {
    const auto context = std::make_unique<DecoderContext>();
    buildHuffmanTables(*context);
    for (uint32_t slot = 0; slot < 4; ++slot) {
        const HuffmanTable& table = context->huffman[slot];
        uint32_t code = 0;
        uint32_t index = 0;
        for (uint32_t length = 1; length <= 16; ++length, code <<= 1) {
            for (uint32_t n = 0; n < table.bits[length]; ++n) {
                m_codes[slot][table.huffVal[index++]] = {code++, length};
            }
        }
    }
}

ScanWriter& ScanWriter::bits(uint32_t value, uint32_t count) {
    while (count-- != 0) {
        m_held = m_held << 1 | (value >> count & 1);
        if (++m_count < 8) continue;
        m_bytes.push_back(static_cast<uint8_t>(m_held));
        if (m_held == 0xFF) m_bytes.push_back(0);
        m_held = 0;
        m_count = 0;
    }
    return *this;
}

ScanWriter& ScanWriter::symbol(uint32_t slot, uint32_t value) {
    const Code& code = m_codes[slot][value];
    return bits(code.value, code.length);
}

ScanWriter& ScanWriter::magnitude(int32_t value, uint32_t size) {
    return bits(static_cast<uint32_t>(value < 0 ? value + (1 << size) - 1 : value), size);
}

ScanWriter& ScanWriter::dc(bool chroma, int32_t difference) {
    const uint32_t size = sizeOf(difference);
    return symbol(chroma, size).magnitude(difference, size);
}

ScanWriter& ScanWriter::ac(bool chroma, uint32_t run, int32_t value) {
    const uint32_t size = sizeOf(value);
    return symbol(2 + chroma, run << 4 | size).magnitude(value, size);
}

ScanWriter& ScanWriter::block(bool chroma, const Block& block, int32_t& predictor) {
    dc(chroma, block[0] - predictor);
    predictor = block[0];
    uint32_t run = 0;
    for (uint32_t k = 1; k < 64; ++k) {
        const int32_t value = block[jpeg::kZigzag[k]];
        if (value == 0) {
            ++run;
            continue;
        }
        for (; run > 15; run -= 16) zeroRun(chroma);
        ac(chroma, run, value);
        run = 0;
    }
    return run != 0 ? endOfBlock(chroma) : *this;
}

ScanWriter& ScanWriter::align() {
    return m_count == 0 ? *this : bits(0xFF, 8 - m_count);
}

ScanWriter& ScanWriter::raw(const Bytes& bytes) {
    align();
    m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
    return *this;
}

Bytes greyScan(uint32_t mcus, Sampling sampling) {
    ScanWriter writer;
    const uint32_t luma = lumaAcross(sampling) * lumaDown(sampling);
    for (uint32_t mcu = 0; mcu < mcus; ++mcu) {
        for (uint32_t n = 0; n < luma; ++n) writer.flatBlock(false, 0);
        writer.flatBlock(true, 0).flatBlock(true, 0);
    }
    return writer.bytes();
}
