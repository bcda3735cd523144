// The frames and pictures that the decoders are measured on: made anew, byte for byte the same everywhere.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace corpus {

using Stream = std::vector<uint8_t>;

struct Set {
    const char* name;
    int width, height;
    int across, down;        // luma samples for one of chroma
    int32_t headerTemplate;  // of the program's preview headers; 0: a file with all its tables
    int quality;             // of such a file, as libjpeg counts
};

// The six sets.
const std::vector<Set>& sets();

// Pictures of a set.
inline constexpr uint32_t kFrames = 16;

// One stream of a set: number 0..kFrames-1.
Stream makeStream(const Set& set, uint32_t number);

// A frame with one of the preview headers as other decoders want it: the Huffman tables put in, the byte that
// belongs to no segment left out.
Stream completed(const Stream& frame);

// Where makeStream's results are kept: FOLDER/SET-NN.jpg
std::string streamPath(const std::string& folder, const char* set, uint32_t number);

}  // namespace corpus
