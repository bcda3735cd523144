#include "device/preview_headers.h"

#include <initializer_list>

namespace {

// In the order of the stream (zigzag); what is not listed is 255.
struct QuantTable {
    uint8_t values[64];
};
constexpr QuantTable FillUp(std::initializer_list<uint8_t> listed) {
    QuantTable table{};
    size_t count = 0;
    for (uint8_t value : listed) table.values[count++] = value;
    while (count < 64) table.values[count++] = 255;
    return table;
}
constexpr QuantTable kQuantTables[2] = {
    FillUp({7,  7,   7,   13,  13,  13,  17,  16,  16,  17,  32,  23,  26,  23,  32,  51,  34,
            37, 37,  34,  51,  73,  57,  57,  64,  57,  57,  73,  128, 85,  85,  102, 102, 85,
            85, 128, 128, 128, 128, 171, 128, 128, 128, 171, 171, 255, 255, 171, 171}),
    FillUp({7,   7,  7,   10,  10,  10, 16,  14,  14,  16,  26,  20,  23,  20,  26,  37,  32,  32,
            32,  32, 39,  57,  39,  39, 51,  39,  39,  57,  85,  64,  64,  73,  73,  64,  64,  85,
            102, 85, 102, 128, 102, 85, 102, 128, 128, 171, 171, 128, 128, 171, 255, 255, 255, 171}),
};

class HeaderWriter {
  public:
    constexpr void Bytes(std::initializer_list<uint8_t> values) {
        for (uint8_t value : values) m_header[m_count++] = value;
    }
    constexpr void Word(uint32_t value) {
        Bytes({static_cast<uint8_t>(value >> 8), static_cast<uint8_t>(value)});
    }
    constexpr void Table(uint8_t number) {
        Bytes({number});
        for (uint8_t value : kQuantTables[number].values) Bytes({value});
    }
    constexpr size_t Count() const { return m_count; }
    constexpr const PreviewHeader& Header() const { return m_header; }

  private:
    PreviewHeader m_header{};
    size_t m_count = 0;
};

constexpr HeaderWriter Write(uint32_t height, uint32_t width, uint8_t lumaSampling) {
    HeaderWriter writer;
    writer.Bytes({0xFF, 0xD8});
    writer.Bytes({0xFF, 0xDB, 0, 132});
    writer.Table(0);
    writer.Table(1);
    writer.Bytes({0xFF, 0xC0, 0, 17, 8});
    writer.Word(height);
    writer.Word(width);
    writer.Bytes({3, 1, lumaSampling, 0, 2, 0x11, 1, 3, 0x11, 1});
    // One byte between the segments belongs to the header as the card's maker defined it; decoders skip it.
    // Without it every frame of a movie would be a byte off.  (PreviewHeaders.StrayByteBeforeScanHeader)
    writer.Bytes({0});
    writer.Bytes({0xFF, 0xDA, 0, 12, 3, 1, 0x00, 2, 0x11, 3, 0x11, 0, 63, 0});
    return writer;
}
static_assert(Write(240, 320, 0x11).Count() == kPreviewHeaderBytes);

constexpr PreviewHeader kHeaders[] = {
    Write(240, 320, 0x11).Header(),
    Write(240, 320, 0x22).Header(),
    Write(120, 160, 0x11).Header(),
};

}  // namespace

const PreviewHeader* FindPreviewHeader(int32_t number) {
    return number >= 1 && number <= 3 ? &kHeaders[number - 1] : nullptr;
}
