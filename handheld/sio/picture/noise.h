// Repeatable irregularity for textures.
#pragma once
#include <cstdint>

namespace sio {

// 0..1, the same for the same arguments on every build.
float hashedUnit(int x, int y, uint32_t seed);

// Smooth noise of one wavelength, -1..1; x and y in wavelengths.
float smoothNoise(float x, float y, uint32_t seed);

// Noise of several octaves, about -1..1: features from `coarsest` units down to the size of `finest` units.
float texture(float x, float y, float coarsest, float finest, uint32_t seed);

}  // namespace sio
