// A picture in memory, 8 bits a channel, rows from the top without padding.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

namespace sio {

struct Rgb {
    uint8_t r, g, b;
    bool operator==(const Rgb& o) const { return r == o.r && g == o.g && b == o.b; }
    bool operator!=(const Rgb& o) const { return !(*this == o); }
};

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Rgb> pixels;  // width * height

    // Sets the size; the pixels' contents are then unspecified.
    void resize(int newWidth, int newHeight) {
        width = newWidth;
        height = newHeight;
        pixels.resize(static_cast<size_t>(newWidth) * newHeight);
    }
    bool empty() const { return pixels.empty(); }
    Rgb* row(int y) { return pixels.data() + static_cast<size_t>(y) * width; }
    const Rgb* row(int y) const { return pixels.data() + static_cast<size_t>(y) * width; }
    const Rgb& at(int x, int y) const { return row(y)[x]; }
};

}  // namespace sio
