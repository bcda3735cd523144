#include "support/picture_encoder.h"

#include "jpeg/zigzag.h"
#include "support/scan_writer.h"

namespace {

// cos((2 x + 1) u pi / 16) times 2 to the 14th, u = 0 reduced by the square root of 2; rows by u.
constexpr int32_t kCosines[8][8] = {
    {11585, 11585, 11585, 11585, 11585, 11585, 11585, 11585},
    {16069, 13623, 9102, 3196, -3196, -9102, -13623, -16069},
    {15137, 6270, -6270, -15137, -15137, -6270, 6270, 15137},
    {13623, -3196, -16069, -9102, 9102, 16069, 3196, -13623},
    {11585, -11585, -11585, 11585, 11585, -11585, -11585, 11585},
    {9102, -16069, 3196, 13623, -13623, -3196, 16069, -9102},
    {6270, -15137, 15137, -6270, -6270, 15137, -15137, 6270},
    {3196, -9102, 13623, -16069, 16069, -13623, 9102, -3196},
};

int64_t divideRounded(int64_t value, int64_t divisor) {
    return (value < 0 ? value - divisor / 2 : value + divisor / 2) / divisor;
}

uint8_t stepOf(uint32_t place, uint32_t coarseness) {
    const uint32_t step = coarseness + coarseness * (place / 8 + place % 8) / 4;
    return static_cast<uint8_t>(step > 255 ? 255 : step);
}

// Centred samples to quantised coefficients.
Block transform(const Block& samples, uint32_t coarseness) {
    int64_t rows[64];
    for (uint32_t y = 0; y < 8; ++y) {
        for (uint32_t u = 0; u < 8; ++u) {
            int64_t sum = 0;
            for (uint32_t x = 0; x < 8; ++x) sum += int64_t{samples[8 * y + x]} * kCosines[u][x];
            rows[8 * y + u] = sum;
        }
    }
    Block coefficients{};
    for (uint32_t v = 0; v < 8; ++v) {
        for (uint32_t u = 0; u < 8; ++u) {
            int64_t sum = 0;
            for (uint32_t y = 0; y < 8; ++y) sum += rows[8 * y + u] * kCosines[v][y];
            const int64_t step = stepOf(8 * v + u, coarseness);
            coefficients[8 * v + u] = static_cast<int32_t>(divideRounded(sum, (int64_t{4} << 28) * step));
        }
    }
    return coefficients;
}

// A plane whose samples each stand for across x down of the picture's, padded at its right and bottom edge.
struct ReducedPlane {
    const TestPicture& picture;
    const Bytes& samples;
    uint32_t across, down;

    uint32_t sample(uint32_t x, uint32_t y) const {
        if (x >= picture.width) x = picture.width - 1;
        if (y >= picture.height) y = picture.height - 1;
        return samples[y * picture.width + x];
    }
    int32_t at(uint32_t x, uint32_t y) const {
        uint32_t sum = 0;
        for (uint32_t j = 0; j < down; ++j) {
            for (uint32_t i = 0; i < across; ++i) sum += sample(x * across + i, y * down + j);
        }
        return static_cast<int32_t>((sum + across * down / 2) / (across * down)) - 128;
    }
    Block block(uint32_t column, uint32_t row) const {
        Block block{};
        for (uint32_t i = 0; i < 64; ++i) block[i] = at(8 * column + i % 8, 8 * row + i / 8);
        return block;
    }
};

uint32_t random(uint32_t& state) {
    state = state * 1664525 + 1013904223;
    return state >> 16;
}

uint8_t clampSample(int32_t value) {
    return static_cast<uint8_t>(value < 0 ? 0 : value > 255 ? 255 : value);
}

}  // namespace

TestPicture makePicture(uint32_t width, uint32_t height, uint32_t seed) {
    TestPicture picture{width, height, {Bytes(width * height), Bytes(width * height), Bytes(width * height)}};
    uint32_t state = seed;
    for (uint32_t y = 0; y < height; ++y) {
        for (uint32_t x = 0; x < width; ++x) {
            const uint32_t field = (x * 5 / width + y * 4 / height + seed) % 5;
            const auto slopeX = static_cast<int32_t>(x * 255 / width);
            const auto slopeY = static_cast<int32_t>(y * 255 / height);
            const auto noise = static_cast<int32_t>(random(state) % 25) - 12;
            int32_t luma = (slopeX + slopeY) / 2;
            if (field == 1) luma += noise;
            if (field == 2) luma = ((x >> 2) + (y >> 1)) % 2 != 0 ? 235 : 20;
            if (field == 3) luma = 255 - slopeY;
            const size_t place = y * width + x;
            picture.planes[0][place] = clampSample(luma);
            picture.planes[1][place] = clampSample(field == 4 ? 240 : slopeX + noise / 4);
            picture.planes[2][place] = clampSample(field == 3 ? 255 - slopeX : slopeY);
        }
    }
    return picture;
}

Bytes encodePicture(const TestPicture& picture, const EncodeOptions& options) {
    Bytes steps(64);
    for (uint32_t k = 0; k < 64; ++k) steps[k] = stepOf(jpeg::kZigzag[k], options.coarseness);
    JpegStream stream;
    stream.start().quantTable(0, steps).quantTable(1, steps);
    if (options.restartInterval != 0) stream.restartInterval(options.restartInterval);
    stream.frame(picture.width, picture.height, options.sampling).scanHeader();

    const uint32_t across = lumaAcross(options.sampling);
    const uint32_t down = lumaDown(options.sampling);
    const uint32_t columns = (picture.width + 8 * across - 1) / (8 * across);
    const uint32_t rows = (picture.height + 8 * down - 1) / (8 * down);
    ScanWriter writer;
    int32_t predictors[3] = {};
    for (uint32_t mcu = 0; mcu < columns * rows; ++mcu) {
        if (options.restartInterval != 0 && mcu != 0 && mcu % options.restartInterval == 0) {
            writer.raw({0xFF, static_cast<uint8_t>(0xD0 + (mcu / options.restartInterval - 1) % 8)});
            for (int32_t& predictor : predictors) predictor = 0;
        }
        const uint32_t column = mcu % columns;
        const uint32_t row = mcu / columns;
        for (uint32_t n = 0; n < across * down; ++n) {
            const ReducedPlane luma{picture, picture.planes[0], 1, 1};
            const Block samples = luma.block(column * across + n % across, row * down + n / across);
            writer.block(false, transform(samples, options.coarseness), predictors[0]);
        }
        for (uint32_t index = 1; index < 3; ++index) {
            const ReducedPlane chroma{picture, picture.planes[index], across, down};
            writer.block(true, transform(chroma.block(column, row), options.coarseness), predictors[index]);
        }
    }
    return stream.raw(writer.bytes()).end().bytes();
}
