// A movie's frames as files of their own.  Portable.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

namespace viewer {

// A Motion-JPEG frame as a complete JPEG file, which every decoder takes: frames leave out the Huffman tables
// that all of them share and the closing marker, and our camera's have a stray byte between two segments.
// Empty for bytes that are no JPEG stream with a scan.
std::vector<uint8_t> CompleteFrame(const uint8_t* frame, size_t size);

}  // namespace viewer
