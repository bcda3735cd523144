#include "golden/golden_lines.h"

#include "support/decode_run.h"
#include "support/picture_encoder.h"

namespace {

struct Source {
    const char* name;
    uint32_t width, height;
    Sampling sampling;
    uint32_t coarseness;
    uint16_t restartInterval;
    uint32_t lostBytes;  // from the end: such a stream fails, with what it delivered until then
};

constexpr Source kSources[] = {
    {"preview-444", 320, 240, Sampling::k444, 7, 0, 0}, {"preview-420", 320, 240, Sampling::k420, 7, 0, 0},
    {"preview-422", 320, 240, Sampling::k422, 4, 0, 0}, {"small-444", 160, 120, Sampling::k444, 7, 0, 0},
    {"small-420", 160, 128, Sampling::k420, 3, 0, 0},   {"vga-420", 640, 480, Sampling::k420, 5, 40, 0},
    {"vga-444", 640, 480, Sampling::k444, 30, 7, 0},    {"xga-422", 1280, 960, Sampling::k422, 8, 0, 0},
    {"sxga-420", 1280, 1024, Sampling::k420, 8, 1, 0},  {"tall-444", 240, 400, Sampling::k444, 2, 0, 0},
    {"wide-422", 640, 200, Sampling::k422, 2, 0, 0},    {"tiny-444", 16, 8, Sampling::k444, 1, 0, 0},
    {"odd-420", 333, 251, Sampling::k420, 6, 0, 0},     {"cut-444", 320, 240, Sampling::k444, 7, 11, 9000},
    {"cut-420", 640, 480, Sampling::k420, 7, 0, 20000},
};

Bytes makeStream(const Source& source) {
    EncodeOptions options;
    options.sampling = source.sampling;
    options.coarseness = source.coarseness;
    options.restartInterval = source.restartInterval;
    const uint32_t seed = source.width + source.coarseness;
    Bytes stream = encodePicture(makePicture(source.width, source.height, seed), options);
    stream.resize(stream.size() - source.lostBytes);
    return stream;
}

// FNV-1a, 64 bits.
std::string hashOf(const Bytes& bytes) {
    uint64_t hash = 0xCBF29CE484222325;
    for (uint8_t byte : bytes) hash = (hash ^ byte) * 0x100000001B3;
    char text[17];
    for (int i = 15; i >= 0; --i, hash >>= 4) text[i] = "0123456789abcdef"[hash & 15];
    return std::string(text, 16);
}

}  // namespace

std::vector<std::string> goldenPictures() {
    std::vector<std::string> names;
    for (const Source& source : kSources) names.push_back(source.name);
    return names;
}

std::vector<std::string> goldenLines(const std::string& picture, const jpeg::ScanEngine& engine) {
    std::vector<std::string> lines;
    for (const Source& source : kSources) {
        if (picture != source.name) continue;
        TestContext context;
        context->engine = &engine;
        const Bytes stream = makeStream(source);
        lines.push_back(picture + " stream " + std::to_string(stream.size()) + " " + hashOf(stream));
        for (int32_t mode = 1; mode <= 14; ++mode) {
            const Decoded decoded = runDecode(*context, mode, stream);
            lines.push_back(picture + " mode " + std::to_string(mode) + " code " +
                            std::to_string(decoded.code) + " bytes " +
                            std::to_string(decoded.picture.size()) + " " + hashOf(decoded.picture));
        }
    }
    return lines;
}
