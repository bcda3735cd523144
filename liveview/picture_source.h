// A 24-bit picture in memory.  Portable.
#pragma once
#include <cstdint>

// B, G, R, top row first, rows padded to four bytes.
struct PictureSource {
    const uint8_t* pixels;
    int width, height;
};

constexpr int RowBytes(int width) { return (width * 3 + 3) & ~3; }
