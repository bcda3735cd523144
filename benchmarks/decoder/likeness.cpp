#include "benchmarks/decoder/likeness.h"

#include <cstdlib>

namespace {

struct Channels {
    int values[3];
};

Channels of565(const uint8_t* pixel) {
    const int word = pixel[0] | pixel[1] << 8;
    return {{word >> 11 << 3, (word >> 5 & 63) << 2, (word & 31) << 3}};
}

Channels of24(const uint8_t* pixel) {
    return {{pixel[2], pixel[1], pixel[0]}};
}

}  // namespace

double meanDifference(const uint8_t* one, const uint8_t* other, const Task& task) {
    const auto channels = task.is565 ? of565 : of24;
    double sum = 0;
    for (uint32_t y = 0; y < task.target.height; ++y) {
        for (uint32_t x = 0; x < task.target.width; ++x) {
            const size_t at = y * task.target.rowBytes + x * task.target.bytesPerPixel;
            const Channels a = channels(one + at), b = channels(other + at);
            for (int i = 0; i < 3; ++i) sum += std::abs(a.values[i] - b.values[i]);
        }
    }
    return sum / (3.0 * task.target.width * task.target.height);
}
