// The picture buffer that the decoder writes and the live view paints.  Portable.
#pragma once
#include <cstdint>

struct DecodedImage {
    // Room for the largest 24-bit picture, 320x240.  Rows are B, G, R, top row first, padded to four bytes.
    static constexpr uint32_t kBytes = 320 * 240 * 3;
    alignas(4) uint8_t pixels[kBytes];
    int32_t mode = 0;  // decoder mode of the last picture written, 0 before the first
};
