// Writes the corpus:  make_corpus FOLDER [FRAMES]
// FRAMES: only the first so many pictures of each set. Prints "corpus SET frames N bytes B hash H" for each,
// B and H over all of a set's streams (FNV-1a, 64 bits).
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "benchmarks/decoder/corpus/corpus.h"

namespace {

bool write(const std::string& path, const corpus::Stream& stream) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(stream.data()), static_cast<std::streamsize>(stream.size()));
    file.close();
    if (!file) std::fprintf(stderr, "make_corpus: cannot write %s\n", path.c_str());
    return static_cast<bool>(file);
}

bool writeSet(const std::string& folder, const corpus::Set& set, uint32_t frames) {
    uint64_t hash = 0xCBF29CE484222325;
    size_t bytes = 0;
    for (uint32_t number = 0; number < frames; ++number) {
        const corpus::Stream stream = corpus::makeStream(set, number);
        if (!write(corpus::streamPath(folder, set.name, number), stream)) return false;
        for (uint8_t byte : stream) hash = (hash ^ byte) * 0x100000001B3;
        bytes += stream.size();
    }
    std::printf("corpus %s frames %u bytes %zu hash %016" PRIx64 "\n", set.name,
                static_cast<unsigned>(frames), bytes, hash);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const int frames = argc == 3 ? std::atoi(argv[2]) : static_cast<int>(corpus::kFrames);
    if (argc < 2 || argc > 3 || frames < 1 || frames > static_cast<int>(corpus::kFrames)) {
        std::fprintf(stderr, "usage: make_corpus FOLDER [FRAMES]\n");
        return 2;
    }
    for (const corpus::Set& set : corpus::sets())
        if (!writeSet(argv[1], set, static_cast<uint32_t>(frames))) return 1;
    return 0;
}
