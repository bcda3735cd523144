// Smooth irregularity in integers, the same on every machine.
#pragma once
#include <cstdint>
#include <vector>

namespace corpus {

// Evenly spread bits for a place.
uint32_t scatter(uint32_t x, uint32_t y, uint32_t seed);

// -bound..bound for a place.
int scatteredWithin(int bound, uint32_t x, uint32_t y, uint32_t seed);

// Noise over cells of 2^cellBits pixels, about -amplitude..amplitude.
struct Octave {
    int cellBits;
    int amplitude;
    uint32_t seed;
};

// Adds the octave's row y to `row`.
void addNoise(const Octave& octave, int y, std::vector<int>& row);

}  // namespace corpus
