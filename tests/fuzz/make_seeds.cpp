// Writes the starting inputs of the fuzz targets: one folder for each target, named as it is.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "support/hostile_seeds.h"

namespace {

// `choice` goes before the content: the byte by which a target chooses mode, header or parser.
void write(const std::filesystem::path& path, uint8_t choice, const uint8_t* content, size_t size) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file.put(static_cast<char>(choice));
    file.write(reinterpret_cast<const char*>(content), static_cast<std::streamsize>(size));
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path.string());
}

// Each segment of a stream by the parsers of its kind, and the scan by every header.
void writeParts(const std::filesystem::path& folder, const HostileSeed& seed) {
    const Bytes& stream = seed.stream;
    for (size_t at = 2; at + 4 <= stream.size();) {
        const uint8_t marker = stream[at + 1];
        const size_t body = at + 2;
        const size_t length = static_cast<size_t>(stream[body] << 8 | stream[body + 1]);
        const std::string name = seed.name + "-" + std::to_string(at);
        for (uint8_t choice = 0; choice < 8; ++choice) {
            const auto byte = static_cast<uint8_t>(choice | (seed.name.size() + at) % 32 << 3);
            write(folder / "fuzz_segments" / (name + std::to_string(choice)), byte, &stream[body], length);
        }
        if (marker == 0xDA) {
            for (uint8_t choice = 0; choice < 32; ++choice) {
                write(folder / "fuzz_scan_data" / (seed.name + std::to_string(choice)), choice,
                      &stream[body + length], stream.size() - body - length - 2);
            }
            break;
        }
        at = body + length;
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: make_fuzz_seeds FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    try {
        for (const HostileSeed& seed : tinySeeds()) {
            const Bytes& stream = seed.stream;
            for (uint8_t choice = 0; choice < 24; ++choice) {
                const std::string name = seed.name + std::to_string(choice);
                write(folder / "fuzz_decoder_strip" / name, choice, stream.data(), stream.size());
                if (choice < 2)
                    write(folder / "fuzz_decoder_planar" / name, choice, stream.data(), stream.size());
            }
            writeParts(folder, seed);
        }
    } catch (const std::exception& error) {
        std::cerr << "make_fuzz_seeds: " << error.what() << "\n";
        return 2;
    }
    return 0;
}
