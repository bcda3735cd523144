#include "benchmarks/decoder/corpus/corpus.h"

#include <cstdio>

#include "benchmarks/decoder/corpus/photograph.h"
#include "device/preview_headers.h"
#include "handheld/sio/encoder/huffman_tables.h"
#include "handheld/sio/encoder/preview_encoder.h"
#include "handheld/sio/encoder/still_encoder.h"
#include "support/jpeg_stream.h"

namespace corpus {

namespace {

using sio::HuffmanTable;

Bytes tableSegment(uint8_t slot, const HuffmanTable& table) {
    Bytes content{slot};
    content.insert(content.end(), table.counts, table.counts + 16);
    content.insert(content.end(), table.symbols, table.symbols + table.symbolCount);
    return content;
}

JpegStream& addHuffmanTables(JpegStream& file) {
    return file.segment(0xC4, tableSegment(0x00, sio::kLumaDc))
        .segment(0xC4, tableSegment(0x10, sio::kLumaAc))
        .segment(0xC4, tableSegment(0x01, sio::kChromaDc))
        .segment(0xC4, tableSegment(0x11, sio::kChromaAc));
}

Bytes stepsOf(const sio::StepTable& steps) {
    return Bytes(steps.begin(), steps.end());
}

Stream makeFrame(const Set& set, const sio::Picture& picture) {
    const PreviewHeader& header = *FindPreviewHeader(set.headerTemplate);
    Stream stream(header.begin(), header.end()), scan;
    sio::CPreviewEncoder().encode(picture, {set.across, set.down}, scan);
    stream.insert(stream.end(), scan.begin(), scan.end());
    return stream;
}

Stream makeFile(const Set& set, const sio::Picture& picture) {
    const sio::StepTables steps = sio::stepsForQuality(set.quality);
    sio::Planes planes;
    planes.split(picture, {set.across, set.down});
    Bytes scan;
    sio::writeScan(planes, steps, {SIZE_MAX}, scan);
    const uint8_t sampling = static_cast<uint8_t>(set.across << 4 | set.down);
    JpegStream file;
    file.start().quantTable(0, stepsOf(steps.luma)).quantTable(1, stepsOf(steps.chroma));
    file.frame(static_cast<uint32_t>(set.width), static_cast<uint32_t>(set.height),
               {{1, sampling, 0}, {2, 0x11, 1}, {3, 0x11, 1}});
    return addHuffmanTables(file).scanHeader().raw(scan).bytes();
}

}  // namespace

const std::vector<Set>& sets() {
    static const std::vector<Set> all = {
        {"preview-444", 320, 240, 1, 1, 1, 0}, {"preview-420", 320, 240, 2, 2, 2, 0},
        {"small-444", 160, 120, 1, 1, 3, 0},   {"still-422", 1280, 960, 2, 1, 0, 66},
        {"still-420", 1280, 960, 2, 2, 0, 69}, {"vga-422", 640, 480, 2, 1, 0, 75},
    };
    return all;
}

Stream makeStream(const Set& set, uint32_t number) {
    const sio::Picture picture = photograph(set.width, set.height, number);
    return set.headerTemplate != 0 ? makeFrame(set, picture) : makeFile(set, picture);
}

Stream completed(const Stream& frame) {
    constexpr size_t kScanHeaderBytes = 14;
    const auto scanHeader = frame.begin() + kPreviewHeaderBytes - kScanHeaderBytes;
    JpegStream file;
    file.raw({frame.begin(), scanHeader - 1});
    return addHuffmanTables(file).raw({scanHeader, frame.end()}).bytes();
}

std::string streamPath(const std::string& folder, const char* set, uint32_t number) {
    char name[40];
    std::snprintf(name, sizeof name, "/%s-%02u.jpg", set, static_cast<unsigned>(number));
    return folder + name;
}

}  // namespace corpus
