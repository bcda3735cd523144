#include "complete_frame.h"

#include <initializer_list>

#include "handheld/sio/encoder/frame_steps.h"
#include "handheld/sio/encoder/huffman_tables.h"

namespace {

void append(std::vector<uint8_t>& out, std::initializer_list<int> bytes) {
    for (int byte : bytes) out.push_back(static_cast<uint8_t>(byte));
}

void appendHuffman(std::vector<uint8_t>& out, int id, const sio::HuffmanTable& table) {
    const int length = 19 + table.symbolCount;
    append(out, {0xFF, 0xC4, length >> 8, length & 0xFF, id});
    out.insert(out.end(), table.counts, table.counts + 16);
    out.insert(out.end(), table.symbols, table.symbols + table.symbolCount);
}

}  // namespace

std::vector<uint8_t> completeFrame(const std::vector<uint8_t>& scan, int width, int height,
                                   sio::Sampling sampling) {
    std::vector<uint8_t> out;
    append(out, {0xFF, 0xD8, 0xFF, 0xDB, 0, 132, 0});
    out.insert(out.end(), sio::frameSteps().luma.begin(), sio::frameSteps().luma.end());
    append(out, {1});
    out.insert(out.end(), sio::frameSteps().chroma.begin(), sio::frameSteps().chroma.end());
    append(out, {0xFF, 0xC0, 0, 17, 8, height >> 8, height & 0xFF, width >> 8, width & 0xFF, 3});
    append(out, {1, sampling.across << 4 | sampling.down, 0, 2, 0x11, 1, 3, 0x11, 1});
    appendHuffman(out, 0x00, sio::kLumaDc);
    appendHuffman(out, 0x10, sio::kLumaAc);
    appendHuffman(out, 0x01, sio::kChromaDc);
    appendHuffman(out, 0x11, sio::kChromaAc);
    append(out, {0xFF, 0xDA, 0, 12, 3, 1, 0x00, 2, 0x11, 3, 0x11, 0, 63, 0});
    out.insert(out.end(), scan.begin(), scan.end());
    return out;
}
