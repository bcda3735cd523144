// Sky, mountains, sea and meadow.
#include <algorithm>

#include "handheld/sio/picture/noise.h"
#include "handheld/sio/scene/scene_parts.h"

namespace sio {
namespace {

constexpr float kLeft = -kFieldWidth / 2 - 4, kRight = -kLeft;
constexpr float kTop = -kFieldHeight / 2 - 4, kBottom = -kTop;

constexpr float kRunOut = 110;

constexpr Point kSun = {-405, -330};
constexpr float kSunRadius = 40;

void drawSun(Canvas& canvas) {
    constexpr float glow = 190;
    Path halo;
    halo.ellipse(kSun.x, kSun.y, glow, glow);
    canvas.fillWith(halo, [](float x, float y) {
        const float t = 1 - std::hypot(x - kSun.x, y - kSun.y) / glow;
        return Colour{255, 244, 205, t > 0 ? 0.55f * t * t : 0};
    });
    Path disc;
    disc.ellipse(kSun.x, kSun.y, kSunRadius, kSunRadius);
    canvas.fill(disc, {255, 248, 214});
}

// A cloud is where rising noise passes a threshold; its underside is in the shade.
void drawClouds(Canvas& canvas) {
    struct Cloud {
        float x, y, width, height;
        uint32_t seed;
    };
    static constexpr Cloud clouds[] = {
        {-170, -372, 150, 52, 11}, {330, -392, 210, 60, 23}, {-500, -190, 150, 42, 37},
        {190, -210, 130, 34, 51},  {545, -160, 150, 38, 67}, {-250, -112, 110, 24, 83},
    };
    for (const Cloud& cloud : clouds) {
        Path area;
        area.ellipse(cloud.x, cloud.y, cloud.width, cloud.height);
        canvas.fillWith(area, [&](float x, float y) {
            const float dx = (x - cloud.x) / cloud.width, dy = (y - cloud.y) / cloud.height;
            const float inside = 1 - dx * dx - dy * dy;
            const float body = inside + 0.9f * texture(x, y * 1.4f, 70, 6, cloud.seed) - 0.28f;
            const float shade = std::clamp(0.5f + dy * 0.8f, 0.0f, 1.0f);
            const float density = std::clamp(body * 2.2f, 0.0f, 0.95f) * std::clamp(inside * 5, 0.0f, 1.0f);
            return mix({255, 254, 250}, {206, 214, 228}, shade).faded(density);
        });
    }
}

// A range of hills: its ridge line, the haze that lies over it, and its woods and rocks.
struct Range {
    float base, height, wavelength;
    Colour light, dark;
    float grain;
    uint32_t seed;
};

float ridgeHeight(float x, const Range& range) {
    return range.height * (0.55f + 0.72f * texture(x, 0, range.wavelength, 8, range.seed));
}

void drawRange(Canvas& canvas, const Range& range, float from, float to) {
    Path::Contour outline{{from, range.base + 10}};
    for (float x = from; x <= to; x += 4) {
        // A range that ends within the picture runs out into the sea.
        const float toEnd = std::min(from > kLeft ? x - from : kRunOut, to < kRight ? to - x : kRunOut);
        const float rise = ridgeHeight(x, range) * std::clamp(toEnd / kRunOut, 0.0f, 1.0f);
        outline.push_back({x, range.base - rise});
    }
    outline.push_back({to, range.base + 10});
    Path path;
    path.add(std::move(outline));
    const float finest = canvas.unitsPerPixel() * 2;
    canvas.fillWith(path, [&](float x, float y) {
        const float slope = texture(x + y * 0.6f, y * 1.3f, 90, 20, range.seed + 5);
        const float leaves = range.grain > 0 ? texture(x, y, 14, std::max(6.0f, finest), range.seed + 9) : 0;
        return mix(range.dark, range.light,
                   std::clamp(0.5f + slope * 0.6f + leaves * range.grain, 0.0f, 1.0f));
    });
}

void drawMeadow(Canvas& canvas) {
    Path::Contour outline{{kLeft, kBottom}};
    for (float x = kLeft; x <= kRight; x += 4) {
        outline.push_back({x, kShore + 7 * texture(x, 3, 160, 10, 401)});
    }
    outline.push_back({kRight, kBottom});
    Path path;
    path.add(outline);
    const float finest = canvas.unitsPerPixel() * 2;
    canvas.fillWith(path, [&](float x, float y) {
        const float depth = std::clamp((y - kShore) / (kBottom - kShore), 0.0f, 1.0f);
        const float patches = texture(x, y * 2.5f, 220, 60, 411);
        // Blades are taller than wide, and longer towards the viewer.
        const float blades = texture(x * 1.7f, y * 0.5f, 16, std::max(6.0f, finest), 421);
        const Colour base = mix({142, 178, 84}, {60, 112, 46}, depth * 0.9f + 0.25f * patches);
        return base.scaled(1 + blades * (0.16f + 0.22f * depth));
    });
    // The beach's edge.
    Path edge;
    outline.erase(outline.begin());
    outline.pop_back();
    edge.stroke(outline, 6);
    canvas.fill(edge, {226, 206, 160});
}

void drawFlowers(Canvas& canvas) {
    static constexpr Colour kinds[] = {{236, 60, 52}, {250, 214, 60}, {246, 244, 240}, {176, 90, 196}};
    for (int i = 0; i < 150; ++i) {
        const float y = 250 + 270 * hashedUnit(i, 0, 501);
        const float x = kLeft + (kRight - kLeft) * hashedUnit(i, 1, 501);
        const float size = 1.4f + (y - 200) * 0.011f;
        Path flower;
        flower.ellipse(x, y, size, size * 0.8f);
        canvas.fill(flower, kinds[static_cast<int>(hashedUnit(i, 2, 501) * 4) & 3]);
    }
}

}  // namespace

void drawSky(Canvas& canvas) {
    Path sky;
    sky.rectangle(kLeft, kTop, kRight, kHorizon + 4);
    canvas.fillWith(sky, [](float, float y) {
        const float t = std::clamp((y - kTop) / (kHorizon - kTop), 0.0f, 1.0f);
        return t < 0.6f ? mix({62, 122, 200}, {140, 190, 232}, t / 0.6f)
                        : mix({140, 190, 232}, {246, 228, 204}, (t - 0.6f) / 0.4f);
    });
    drawSun(canvas);
    drawClouds(canvas);
}

void drawLand(Canvas& canvas) {
    Path sea;
    sea.rectangle(kLeft, kHorizon, kRight, kShore + 20);
    canvas.fillWith(sea, [](float x, float y) {
        const float t = (y - kHorizon) / (kShore - kHorizon);
        const float swell = texture(x * 0.3f, y * 2.2f, 40, 8, 301);
        return mix({120, 168, 196}, {28, 102, 140}, std::clamp(t * 1.1f, 0.0f, 1.0f))
            .scaled(1 + 0.10f * swell);
    });
    drawRange(canvas, {kHorizon, 150, 260, {150, 170, 200}, {112, 136, 178}, 0, 101}, kLeft, 470);
    drawRange(canvas, {kHorizon + 2, 92, 190, {118, 150, 140}, {76, 112, 116}, 0.15f, 131}, -150, kRight);
    drawRange(canvas, {kHorizon + 44, 120, 240, {96, 142, 74}, {38, 84, 52}, 0.8f, 161}, 150, kRight);
    drawMeadow(canvas);
    drawFlowers(canvas);
}

}  // namespace sio
