// Draws outlines, with exact area coverage at their edges, into a picture that shows a view of the field.
#pragma once
#include <cmath>

#include "handheld/sio/picture/path.h"
#include "handheld/sio/picture/picture.h"
#include "handheld/sio/picture/view.h"

namespace sio {

// Channels 0..255, opacity 0..1.
struct Colour {
    float r, g, b;
    float a = 1;

    Colour faded(float opacity) const { return {r, g, b, a * opacity}; }
    Colour scaled(float factor) const { return {r * factor, g * factor, b * factor, a}; }
};

inline Colour mix(const Colour& from, const Colour& to, float t) {
    return {from.r + (to.r - from.r) * t, from.g + (to.g - from.g) * t, from.b + (to.b - from.b) * t,
            from.a + (to.a - from.a) * t};
}

class Canvas {
  public:
    Canvas(Picture& target, const View& view);

    float unitsPerPixel() const { return m_unitsPerPixel; }

    void fill(const Path& path, const Colour& colour) {
        fillWith(path, [&](float, float) { return colour; });
    }

    // paint(x, y) gives the colour of a place in the field.
    template <class Paint>
    void fillWith(const Path& path, const Paint& paint) {
        if (!cover(path)) return;
        for (int y = m_top; y < m_bottom; ++y) {
            const float* step = m_steps.data() + static_cast<size_t>(y - m_top) * m_stride;
            Rgb* row = m_target.row(y);
            float covered = 0;
            for (int x = m_left; x < m_right; ++x) {
                covered += step[x - m_left];
                const float share = std::fabs(covered);
                if (share < kInvisible) continue;
                const Colour colour = paint(fieldX(x), fieldY(y));
                blend(row[x], colour, colour.a * (share < 1 ? share : 1));
            }
        }
    }

  private:
    static constexpr float kInvisible = 1.0f / 512;

    float fieldX(int x) const { return (x + 0.5f - m_target.width * 0.5f) * m_unitsPerPixel; }
    float fieldY(int y) const { return (y + 0.5f - m_target.height * 0.5f) * m_unitsPerPixel; }
    Point toPixels(Point p) const {
        return {p.x / m_unitsPerPixel + m_target.width * 0.5f,
                p.y / m_unitsPerPixel + m_target.height * 0.5f};
    }
    static uint8_t blended(uint8_t below, float above, float share) {
        const float value = below + (above - below) * share;
        return static_cast<uint8_t>(value <= 0 ? 0 : value >= 255 ? 255 : value + 0.5f);
    }
    static void blend(Rgb& pixel, const Colour& colour, float share) {
        pixel = {blended(pixel.r, colour.r, share), blended(pixel.g, colour.g, share),
                 blended(pixel.b, colour.b, share)};
    }

    bool cover(const Path& path);
    void addEdge(Point from, Point to);
    void addSlice(float* step, float fromX, float toX, float signedHeight);

    Picture& m_target;
    float m_unitsPerPixel;
    // Pixels that the current path may touch, and the change of coverage from each to the next.
    int m_left = 0, m_top = 0, m_right = 0, m_bottom = 0;
    int m_stride = 0;
    std::vector<float> m_steps;
};

}  // namespace sio
