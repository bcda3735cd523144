#include "handheld/sio/encoder/planes.h"

#include <algorithm>

namespace sio {
namespace {

// JFIF's conversion with 16 fraction bits; chroma is biased by 128.
constexpr int kHalf = 1 << 15;
constexpr int kBias = (128 << 16) + kHalf - 1;

uint8_t luma(int r, int g, int b) {
    return static_cast<uint8_t>((19595 * r + 38470 * g + 7471 * b + kHalf) >> 16);
}
uint8_t blueDifference(int r, int g, int b) {
    return static_cast<uint8_t>((-11059 * r - 21709 * g + 32768 * b + kBias) >> 16);
}
uint8_t redDifference(int r, int g, int b) {
    return static_cast<uint8_t>((32768 * r - 27439 * g - 5329 * b + kBias) >> 16);
}

void size(Plane& plane, int width, int height) {
    plane.width = width;
    plane.height = height;
    plane.samples.resize(static_cast<size_t>(width) * height);
}

// Fills a row's or a column's rest with its last sample.
void pad(Plane& plane, int usedWidth, int usedHeight) {
    for (int y = 0; y < usedHeight; ++y) {
        uint8_t* row = plane.samples.data() + static_cast<size_t>(y) * plane.width;
        std::fill(row + usedWidth, row + plane.width, row[usedWidth - 1]);
    }
    const uint8_t* last = plane.samples.data() + static_cast<size_t>(usedHeight - 1) * plane.width;
    for (int y = usedHeight; y < plane.height; ++y) {
        std::copy(last, last + plane.width, plane.samples.data() + static_cast<size_t>(y) * plane.width);
    }
}

void convertLuma(const Picture& picture, Plane& plane) {
    for (int y = 0; y < picture.height; ++y) {
        const Rgb* in = picture.row(y);
        uint8_t* out = plane.samples.data() + static_cast<size_t>(y) * plane.width;
        for (int x = 0; x < picture.width; ++x) out[x] = luma(in[x].r, in[x].g, in[x].b);
    }
}

void convertChroma(const Picture& picture, Sampling sampling, Plane& blue, Plane& red) {
    const int width = (picture.width + sampling.across - 1) / sampling.across;
    const int height = (picture.height + sampling.down - 1) / sampling.down;
    for (int y = 0; y < height; ++y) {
        const Rgb* upper = picture.row(y * sampling.down);
        const Rgb* lower = picture.row(std::min(y * sampling.down + sampling.down - 1, picture.height - 1));
        uint8_t* outBlue = blue.samples.data() + static_cast<size_t>(y) * blue.width;
        uint8_t* outRed = red.samples.data() + static_cast<size_t>(y) * red.width;
        for (int x = 0; x < width; ++x) {
            const int first = x * sampling.across;
            const int last = std::min(first + sampling.across - 1, picture.width - 1);
            const Rgb &a = upper[first], &b = upper[last], &c = lower[first], &d = lower[last];
            const int r = (a.r + b.r + c.r + d.r + 2) >> 2, g = (a.g + b.g + c.g + d.g + 2) >> 2;
            const int blueSum = (a.b + b.b + c.b + d.b + 2) >> 2;
            outBlue[x] = blueDifference(r, g, blueSum);
            outRed[x] = redDifference(r, g, blueSum);
        }
    }
    pad(blue, width, height);
    pad(red, width, height);
}

}  // namespace

void Planes::split(const Picture& picture, Sampling how) {
    sampling = how;
    unitsAcross = (picture.width + kBlock * how.across - 1) / (kBlock * how.across);
    unitsDown = (picture.height + kBlock * how.down - 1) / (kBlock * how.down);
    size(components[0], unitsAcross * kBlock * how.across, unitsDown * kBlock * how.down);
    for (int i : {1, 2}) size(components[i], unitsAcross * kBlock, unitsDown * kBlock);
    convertLuma(picture, components[0]);
    pad(components[0], picture.width, picture.height);
    convertChroma(picture, how, components[1], components[2]);
}

}  // namespace sio
