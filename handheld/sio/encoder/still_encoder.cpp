#include "handheld/sio/encoder/still_encoder.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

#include "handheld/sio/encoder/huffman_tables.h"

namespace sio {
namespace {

// Annex K, section K.1, in zig-zag order.
constexpr StepTables kExampleSteps = {
    {16, 11,  12, 14, 12, 10, 16,  14,  13,  14, 18, 17,  16,  19,  24,  40,  26, 24,  22,  22, 24, 49,
     35, 37,  29, 40, 58, 51, 61,  60,  57,  51, 56, 55,  64,  72,  92,  78,  64, 68,  87,  69, 55, 56,
     80, 109, 81, 87, 95, 98, 103, 104, 103, 62, 77, 113, 121, 112, 100, 120, 92, 101, 103, 99},
    {17, 18, 18, 24, 21, 24, 47, 26, 26, 47, 99, 66, 56, 66, 99, 99, 99, 99, 99, 99, 99, 99,
     99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99,
     99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99}};

constexpr int kQualities[] = {75, 85, 93};
constexpr int kLowestQuality = 20, kQualityStep = 5;
constexpr Sampling kStillSampling = k422;

StepTable scaledSteps(const StepTable& steps, int quality) {
    const int percent = quality < 50 ? 5000 / quality : 200 - quality * 2;
    StepTable scaled;
    for (int k = 0; k < kCoefficients; ++k) {
        scaled[k] = static_cast<uint8_t>(std::clamp((steps[k] * percent + 50) / 100, 1, 255));
    }
    return scaled;
}

class CFileWriter {
  public:
    void bytes(std::initializer_list<int> values) {
        for (int value : values) m_file.push_back(static_cast<uint8_t>(value));
    }
    void words(std::initializer_list<int> values) {
        for (int value : values) bytes({value >> 8, value & 0xFF});
    }
    void block(const uint8_t* data, size_t length) { m_file.insert(m_file.end(), data, data + length); }
    std::vector<uint8_t>& file() { return m_file; }

  private:
    std::vector<uint8_t> m_file;
};

void putStepTable(CFileWriter& out, int id, const StepTable& steps) {
    out.words({0xFFDB, 3 + kCoefficients});
    out.bytes({id});
    out.block(steps.data(), steps.size());
}

void putHuffmanTable(CFileWriter& out, int id, const HuffmanTable& table) {
    out.words({0xFFC4, 3 + 16 + table.symbolCount});
    out.bytes({id});
    out.block(table.counts, 16);
    out.block(table.symbols, table.symbolCount);
}

void putHeaders(CFileWriter& out, const Picture& picture, const StepTables& steps) {
    out.words({0xFFD8});
    out.words({0xFFE0, 16});
    out.bytes({'J', 'F', 'I', 'F', 0, 1, 1, 0});  // version 1.01, density as an aspect ratio
    out.words({1, 1});
    out.bytes({0, 0});  // no thumbnail
    putStepTable(out, 0, steps.luma);
    putStepTable(out, 1, steps.chroma);
    out.words({0xFFC0, 17});
    out.bytes({8});
    out.words({picture.height, picture.width});
    out.bytes({3, 1, kStillSampling.across << 4 | kStillSampling.down, 0, 2, 0x11, 1, 3, 0x11, 1});
    putHuffmanTable(out, 0x00, kLumaDc);
    putHuffmanTable(out, 0x10, kLumaAc);
    putHuffmanTable(out, 0x01, kChromaDc);
    putHuffmanTable(out, 0x11, kChromaAc);
    out.words({0xFFDA, 12});
    out.bytes({3, 1, 0x00, 2, 0x11, 3, 0x11, 0, 63, 0});
}

}  // namespace

StepTables stepsForQuality(int quality) {
    return {scaledSteps(kExampleSteps.luma, quality), scaledSteps(kExampleSteps.chroma, quality)};
}

std::vector<uint8_t> encodeStill(const Picture& picture, uint32_t quality, size_t budget) {
    Planes planes;
    planes.split(picture, kStillSampling);
    for (int level = kQualities[quality < 3 ? quality : 0];; level -= kQualityStep) {
        level = std::max(level, kLowestQuality);
        const StepTables steps = stepsForQuality(level);
        CFileWriter out;
        putHeaders(out, picture, steps);
        const size_t room = budget > out.file().size() ? budget - out.file().size() : 0;
        const bool lastTry = level == kLowestQuality;
        if (writeScan(planes, steps, {lastTry ? std::numeric_limits<size_t>::max() : room}, out.file())) {
            return std::move(out.file());
        }
    }
}

}  // namespace sio
