// Decodes a fixed set of pictures in every mode, by every engine that the processor can run, and compares
// code, size and hash of the delivered bytes with a checked-in list. The same list holds for every engine and
// every build: native, the handheld's processor, Windows.
//
//     golden_decoder LIST                 compares, names what differs, exit status 1 when anything does
//     golden_decoder --regenerate LIST    writes the list anew; a change of it is a change of the decoder
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "jpeg/scan_engine.h"
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

std::vector<std::string> makeLines(const jpeg::ScanEngine& engine) {
    TestContext context;
    context->engine = &engine;
    std::vector<std::string> lines;
    for (const Source& source : kSources) {
        const Bytes stream = makeStream(source);
        lines.push_back(std::string(source.name) + " stream " + std::to_string(stream.size()) + " " +
                        hashOf(stream));
        for (int32_t mode = 1; mode <= 14; ++mode) {
            const Decoded decoded = runDecode(*context, mode, stream);
            lines.push_back(std::string(source.name) + " mode " + std::to_string(mode) + " code " +
                            std::to_string(decoded.code) + " bytes " +
                            std::to_string(decoded.picture.size()) + " " + hashOf(decoded.picture));
        }
    }
    return lines;
}

std::vector<std::string> readLines(std::istream& file) {
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

int regenerate(const char* path) {
    std::ofstream file(path, std::ios::binary);
    for (const std::string& line : makeLines(*jpeg::scanEngines().begin())) file << line << '\n';
    file.close();
    if (file) return 0;
    std::cerr << "golden_decoder: cannot write " << path << "\n";
    return 2;
}

size_t countDifferences(const std::vector<std::string>& expected, const std::vector<std::string>& actual) {
    size_t differences = 0;
    for (size_t i = 0; i < expected.size() || i < actual.size(); ++i) {
        const std::string want = i < expected.size() ? expected[i] : "(nothing)";
        const std::string got = i < actual.size() ? actual[i] : "(nothing)";
        if (want == got) continue;
        ++differences;
        std::cout << "expected " << want << "\n     got " << got << "\n";
    }
    return differences;
}

int compare(const char* path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::cerr << "golden_decoder: cannot open " << path << "\n";
        return 2;
    }
    const std::vector<std::string> expected = readLines(file);
    size_t differences = 0;
    for (const jpeg::ScanEngine& engine : jpeg::scanEngines()) {
        if (!engine.supported()) continue;
        const std::vector<std::string> actual = makeLines(engine);
        const size_t differing = countDifferences(expected, actual);
        std::cout << engine.name << ": " << actual.size() << " lines, " << differing << " differ\n";
        differences += differing;
    }
    return differences == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--regenerate") == 0) return regenerate(argv[2]);
    if (argc == 2 && argv[1][0] != '-') return compare(argv[1]);
    std::cerr << "usage: golden_decoder [--regenerate] LIST\n";
    return 2;
}
