#include "benchmarks/decoder/load_set.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

std::vector<corpus::Stream> loadSet(const std::string& folder, const char* set) {
    std::vector<corpus::Stream> streams;
    for (uint32_t number = 0; number < corpus::kFrames; ++number) {
        std::ifstream file(corpus::streamPath(folder, set, number), std::ios::binary);
        if (!file) break;
        streams.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    if (streams.empty()) throw std::runtime_error("nothing of " + std::string(set) + " in " + folder);
    return streams;
}
