// The typical Huffman tables of JPEG Annex K, section K.3.
#pragma once
#include <array>
#include <cstdint>

namespace sio {

// As in a DHT segment: how many codes have 1..16 bits, and the symbols by rising code.
struct HuffmanTable {
    uint8_t counts[16];
    uint8_t symbols[162];
    int symbolCount;
};

extern const HuffmanTable kLumaDc, kLumaAc, kChromaDc, kChromaAc;

// Code word of every symbol; length 0 for symbols without one.
class CHuffmanCodes {
  public:
    explicit CHuffmanCodes(const HuffmanTable& table);
    uint32_t word(int symbol) const { return m_words[symbol]; }
    int length(int symbol) const { return m_lengths[symbol]; }

  private:
    std::array<uint16_t, 256> m_words{};
    std::array<uint8_t, 256> m_lengths{};
};

}  // namespace sio
