#include "benchmarks/decoder/contender.h"

#include <cstring>

namespace {

template <size_t pixelBytes>
void copyRow(const uint8_t* in, uint32_t pixels, uint8_t* out) {
    for (uint32_t x = 0; x < pixels; x += 3) {
        std::memcpy(out, in, 3 * pixelBytes);
        in += 4 * pixelBytes;
        out += 3 * pixelBytes;
    }
}

}  // namespace

void copyThreeOfFour(const uint8_t* in, size_t inRowBytes, const Task& task, uint8_t* picture) {
    const auto copy = task.is565 ? copyRow<2> : copyRow<3>;
    for (uint32_t y = 0; y < task.target.height; ++y)
        copy(in + (y + y / 3) * inRowBytes, task.target.width, picture + y * task.target.rowBytes);
}
