#include "handheld/sio/picture/noise.h"

#include <cmath>

namespace sio {

float hashedUnit(int x, int y, uint32_t seed) {
    uint32_t h =
        static_cast<uint32_t>(x) * 0x9E3779B1u ^ static_cast<uint32_t>(y) * 0x85EBCA77u ^ seed * 0xC2B2AE3Du;
    h = (h ^ (h >> 15)) * 0x2C1B3C6Du;
    h = (h ^ (h >> 12)) * 0x297A2D39u;
    return static_cast<float>((h ^ (h >> 15)) >> 8) / 16777216.0f;
}

float smoothNoise(float x, float y, uint32_t seed) {
    const float cellX = std::floor(x), cellY = std::floor(y);
    const int ix = static_cast<int>(cellX), iy = static_cast<int>(cellY);
    float tx = x - cellX, ty = y - cellY;
    tx = tx * tx * (3 - 2 * tx);
    ty = ty * ty * (3 - 2 * ty);
    const float upperLeft = hashedUnit(ix, iy, seed), lowerLeft = hashedUnit(ix, iy + 1, seed);
    const float upper = upperLeft + (hashedUnit(ix + 1, iy, seed) - upperLeft) * tx;
    const float lower = lowerLeft + (hashedUnit(ix + 1, iy + 1, seed) - lowerLeft) * tx;
    return (upper + (lower - upper) * ty) * 2 - 1;
}

float texture(float x, float y, float coarsest, float finest, uint32_t seed) {
    float sum = 0, weight = 0.5f;
    for (float wavelength = coarsest; wavelength >= finest; wavelength *= 0.5f, weight *= 0.55f) {
        sum += weight * smoothNoise(x / wavelength, y / wavelength, seed++);
    }
    return sum;
}

}  // namespace sio
