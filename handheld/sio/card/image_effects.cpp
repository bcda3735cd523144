#include "handheld/sio/card/image_effects.h"

#include <algorithm>
#include <cmath>

namespace sio {
namespace {

struct Gains {
    float red, green, blue;
};

// The scene lies in daylight. Presets for other light therefore tint it as they would on any camera, and
// without white balance the sensor's own green cast shows.
constexpr Gains kWhiteBalances[] = {
    {1.00f, 1.00f, 1.00f},  // automatic
    {1.06f, 1.00f, 0.92f},  // daylight: a little warmer
    {0.92f, 0.93f, 1.10f},  // fluorescent: takes out green
    {0.74f, 0.94f, 1.30f},  // tungsten: takes out orange
    {0.86f, 1.06f, 0.80f},  // off
};

enum ColourMode { kColour, kBlackAndWhite, kSepia, kColourModes };
enum Metering { kMatrix, kCentreWeighted, kMeterings };

template <size_t count>
const Gains& choose(const Gains (&rows)[count], uint32_t index) {
    return rows[index < count ? index : 0];
}

int lumaOf(const Rgb& p) {
    return (77 * p.r + 150 * p.g + 29 * p.b) >> 8;
}

// Mean brightness 0..255 of a sample of the pixels; centre-weighted counts the middle third four times more.
float meter(const Picture& picture, uint32_t metering) {
    const int step = std::max(1, picture.width / 80);
    int64_t sum = 0, weights = 0;
    for (int y = 0; y < picture.height; y += step) {
        const bool middleRow = y * 3 >= picture.height && y * 3 < 2 * picture.height;
        for (int x = 0; x < picture.width; x += step) {
            const bool middle = middleRow && x * 3 >= picture.width && x * 3 < 2 * picture.width;
            const int weight = metering == kCentreWeighted && middle ? 33 : 1;
            sum += weight * lumaOf(picture.at(x, y));
            weights += weight;
        }
    }
    return static_cast<float>(sum) / std::max<int64_t>(weights, 1);
}

// The exposure pulls the metered brightness part of the way to a mid tone, as an exponent that spares black
// and white.
float exposureExponent(float metered) {
    constexpr float midTone = 138, strength = 1.0f;
    const float level = std::clamp(metered, 8.0f, 247.0f) / 255;
    const float wanted = std::log(midTone / 255) / std::log(level);
    return std::clamp(1 + strength * (wanted - 1), 0.55f, 1.8f);
}

struct ToneCurves {
    uint8_t red[256], green[256], blue[256];
};

ToneCurves makeCurves(float exponent, const Gains& gains) {
    ToneCurves curves;
    for (int i = 0; i < 256; ++i) {
        const float exposed = 255 * std::pow(i / 255.0f, exponent);
        const auto level = [&](float gain) {
            return static_cast<uint8_t>(std::min(255.0f, exposed * gain + 0.5f));
        };
        curves.red[i] = level(gains.red);
        curves.green[i] = level(gains.green);
        curves.blue[i] = level(gains.blue);
    }
    return curves;
}

Rgb sepia(int luma) {
    const auto level = [](int value) { return static_cast<uint8_t>(std::clamp(value, 0, 255)); };
    return {level(luma + 22 - luma / 14), level(luma * 15 / 16 + 4), level(luma * 3 / 4)};
}

}  // namespace

void applyImageParameters(const ImageParameters& parameters, Picture& picture) {
    const uint32_t metering = parameters.metering < kMeterings ? parameters.metering : 0;
    const uint32_t colour = parameters.color < kColourModes ? parameters.color : 0;
    const ToneCurves curves = makeCurves(exposureExponent(meter(picture, metering)),
                                         choose(kWhiteBalances, parameters.whiteBalance));
    for (Rgb& pixel : picture.pixels) {
        pixel = {curves.red[pixel.r], curves.green[pixel.g], curves.blue[pixel.b]};
        if (colour == kColour) continue;
        const int luma = lumaOf(pixel);
        const uint8_t grey = static_cast<uint8_t>(luma);
        pixel = colour == kSepia ? sepia(luma) : Rgb{grey, grey, grey};
    }
}

}  // namespace sio
