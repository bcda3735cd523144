#include "liveview/picture_fit.h"

#include <algorithm>

namespace {

// A place between two source samples: the first of them and the weight of the second in 1/256.
struct Tap {
    int first, second;
    int weight;
};

// Pixel centres of both scales lie on the same picture.
Tap TapAt(int index, int from, int to) {
    const int center = std::max(0, ((2 * index + 1) * from * 256 / (2 * to)) - 128);
    const int first = std::min(center >> 8, from - 1);
    return {first, std::min(first + 1, from - 1), center & 255};
}

int Mix(int a, int b, int weight) { return a * (256 - weight) + b * weight; }

}  // namespace

void FitPicture(const PictureSource& from, const PictureSource& to, uint8_t* pixels) {
    for (int y = 0; y < to.height; ++y) {
        const Tap row = TapAt(y, from.height, to.height);
        const uint8_t* const upper = from.pixels + row.first * RowBytes(from.width);
        const uint8_t* const lower = from.pixels + row.second * RowBytes(from.width);
        uint8_t* out = pixels + y * RowBytes(to.width);
        for (int x = 0; x < to.width; ++x) {
            const Tap column = TapAt(x, from.width, to.width);
            for (int c = 0; c < 3; ++c) {
                const int a = column.first * 3 + c, b = column.second * 3 + c;
                const int above = Mix(upper[a], upper[b], column.weight);
                const int below = Mix(lower[a], lower[b], column.weight);
                *out++ = static_cast<uint8_t>((Mix(above, below, row.weight) + 32768) >> 16);
            }
        }
    }
}
