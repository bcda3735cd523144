#include "handheld/korvoimgview/movie_frame.h"

#include "handheld/sio/encoder/huffman_tables.h"

namespace viewer {
namespace {

constexpr uint8_t kMark = 0xFF;
constexpr uint8_t kStart = 0xD8, kEnd = 0xD9, kScan = 0xDA, kHuffman = 0xC4;

struct Table {
    uint8_t place;  // class and number, as in the segment
    const sio::HuffmanTable& codes;
};

void AddHuffmanTables(std::vector<uint8_t>& file) {
    const Table tables[] = {
        {0x00, sio::kLumaDc}, {0x10, sio::kLumaAc}, {0x01, sio::kChromaDc}, {0x11, sio::kChromaAc}};
    for (const Table& table : tables) {
        const auto length = static_cast<uint16_t>(2 + 1 + 16 + table.codes.symbolCount);
        file.insert(file.end(), {kMark, kHuffman, static_cast<uint8_t>(length >> 8),
                                 static_cast<uint8_t>(length), table.place});
        file.insert(file.end(), table.codes.counts, table.codes.counts + 16);
        file.insert(file.end(), table.codes.symbols, table.codes.symbols + table.codes.symbolCount);
    }
}

}  // namespace

std::vector<uint8_t> CompleteFrame(const uint8_t* frame, size_t size) {
    if (size < 4 || frame[0] != kMark || frame[1] != kStart) return {};
    std::vector<uint8_t> file = {kMark, kStart};
    bool hasTables = false;
    for (size_t at = 2; at + 4 <= size;) {
        if (frame[at] != kMark || frame[at + 1] == kMark || frame[at + 1] == 0) {
            ++at;  // filling before a marker
            continue;
        }
        const uint8_t marker = frame[at + 1];
        if (marker == kScan) {
            if (!hasTables) AddHuffmanTables(file);
            file.insert(file.end(), frame + at, frame + size);
            if (frame[size - 2] != kMark || frame[size - 1] != kEnd) file.insert(file.end(), {kMark, kEnd});
            return file;
        }
        const size_t length = 2 + (static_cast<size_t>(frame[at + 2]) << 8 | frame[at + 3]);
        if (length < 4 || length > size - at) return {};
        if (marker == kHuffman) hasTables = true;
        file.insert(file.end(), frame + at, frame + at + length);
        at += length;
    }
    return {};
}

}  // namespace viewer
