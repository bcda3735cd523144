// Builds JPEG streams for tests, byte by byte where wanted, wrong where wanted.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

using Bytes = std::vector<uint8_t>;

enum class Sampling { k444, k422, k420 };

// Factors of a layout's luma component; both chroma components have 1 x 1.
uint32_t lumaAcross(Sampling sampling);
uint32_t lumaDown(Sampling sampling);

struct StreamComponent {
    uint8_t id;
    uint8_t sampling;  // H in the high nibble, V in the low one
    uint8_t quantTable;
};
std::vector<StreamComponent> threeComponents(Sampling sampling, uint8_t firstId = 1);

class JpegStream {
  public:
    JpegStream& raw(const Bytes& bytes);
    JpegStream& marker(uint8_t code) { return raw({0xFF, code}); }
    JpegStream& segment(uint8_t code, const Bytes& content);  // with its length before it
    JpegStream& start() { return marker(0xD8); }
    JpegStream& end() { return marker(0xD9); }
    // One table, all entries alike or in the stream's (zigzag) order.
    JpegStream& quantTable(uint8_t number, uint8_t step);
    JpegStream& quantTable(uint8_t number, const Bytes& steps);
    JpegStream& restartInterval(uint16_t mcus);
    JpegStream& frame(uint32_t width, uint32_t height, const std::vector<StreamComponent>& components);
    JpegStream& frame(uint32_t width, uint32_t height, Sampling sampling) {
        return frame(width, height, threeComponents(sampling));
    }
    // Tables 0/0 for the first component, 1/1 for the others.
    JpegStream& scanHeader(uint32_t count = 3, uint8_t firstId = 1);

    // SOI, tables 0 and 1 with one step for all, frame and scan header.
    static JpegStream untilScan(uint32_t width, uint32_t height, Sampling sampling, uint8_t step = 8);

    const Bytes& bytes() const { return m_bytes; }

  private:
    Bytes m_bytes;
};
