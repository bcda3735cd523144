// Pictures in memory.  Portable.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

namespace viewer {

// Rows from the top, without padding; each pixel is 0xRRGGBB, as the desktop's 32-bit bitmaps hold it.
struct Pixels {
    int width = 0, height = 0;
    std::vector<uint32_t> data;

    void Allocate(int w, int h) {
        width = w;
        height = h;
        data.assign(static_cast<size_t>(w) * static_cast<size_t>(h), 0);
    }
    uint32_t* Row(int y) { return data.data() + static_cast<size_t>(y) * static_cast<size_t>(width); }
    const uint32_t* Row(int y) const {
        return data.data() + static_cast<size_t>(y) * static_cast<size_t>(width);
    }
};

}  // namespace viewer
