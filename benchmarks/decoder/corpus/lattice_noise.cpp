#include "benchmarks/decoder/corpus/lattice_noise.h"

#include <cstddef>

namespace corpus {

namespace {

constexpr int kOne = 256;  // weights and lattice values are in units of 1/256

// 0..kOne over a cell, level at both ends.
int weightInCell(int place, int cellBits) {
    const int t = (place << 8) >> cellBits;
    return t * t * (3 * kOne - 2 * t) >> 16;
}

int latticeValue(const Octave& octave, int x, int y) {
    return scatteredWithin(kOne, static_cast<uint32_t>(x), static_cast<uint32_t>(y), octave.seed);
}

}  // namespace

uint32_t scatter(uint32_t x, uint32_t y, uint32_t seed) {
    uint32_t bits = x * 0x9E3779B1u ^ y * 0x85EBCA77u ^ seed * 0xC2B2AE3Du;
    bits = (bits ^ bits >> 15) * 0x2C1B3C6Du;
    bits = (bits ^ bits >> 12) * 0x297A2D39u;
    return bits ^ bits >> 15;
}

int scatteredWithin(int bound, uint32_t x, uint32_t y, uint32_t seed) {
    return static_cast<int>(scatter(x, y, seed) % static_cast<uint32_t>(2 * bound + 1)) - bound;
}

void addNoise(const Octave& octave, int y, std::vector<int>& row) {
    const int cell = 1 << octave.cellBits;
    const int cellY = y >> octave.cellBits;
    const int weightY = weightInCell(y & (cell - 1), octave.cellBits);
    const auto atEdge = [&](int cellX) {
        const int upper = latticeValue(octave, cellX, cellY), lower = latticeValue(octave, cellX, cellY + 1);
        return (upper * kOne + (lower - upper) * weightY) / kOne * octave.amplitude;
    };
    const int width = static_cast<int>(row.size());
    int left = atEdge(0);
    for (int x = 0; x < width;) {
        const int right = atEdge((x >> octave.cellBits) + 1);
        for (int i = 0; i < cell && x < width; ++i, ++x) {
            const int weight = weightInCell(i, octave.cellBits);
            row[static_cast<size_t>(x)] += (left * (kOne - weight) + right * weight) / (kOne * kOne);
        }
        left = right;
    }
}

}  // namespace corpus
