// What moves in the scene.
#include <algorithm>
#include <cstdio>

#include "handheld/sio/picture/lettering.h"
#include "handheld/sio/picture/noise.h"
#include "handheld/sio/scene/clock_faces.h"
#include "handheld/sio/scene/scene_parts.h"

namespace sio {
namespace {

constexpr float kTurn = 6.2831853f;

// Position 0..1 of something that repeats every `period` milliseconds.
float phase(uint32_t time, uint32_t period) {
    return static_cast<float>(time % period) / period;
}

// A place that travels from beyond one edge of the field to beyond the other and starts again.
float crossing(uint32_t time, uint32_t period, float margin) {
    return -kFieldWidth / 2 - margin + (kFieldWidth + 2 * margin) * phase(time, period);
}

void drawHand(Canvas& canvas, float turn, float length, float thickness, const Colour& colour) {
    const float s = std::sin(turn * kTurn), c = std::cos(turn * kTurn);
    Path hand;
    hand.stroke({{kDial.x - s * 9, kDial.y + c * 9}, {kDial.x + s * length, kDial.y - c * length}},
                thickness);
    canvas.fill(hand, colour);
}

}  // namespace

// Glints that swell and fade, each at its own pace, denser below the sun. The land in front hides what it
// covers: glints keep to the open water.
void drawWater(Canvas& canvas, uint32_t time) {
    for (int i = 0; i < 90; ++i) {
        const float depth = hashedUnit(i, 0, 801);
        const float y = kHorizon + 8 + 132 * depth;
        const bool left = i % 3 != 0;
        const float x = left ? -636 + 150 * hashedUnit(i, 1, 801) : -232 + 134 * hashedUnit(i, 1, 801);
        const float glow = std::sin((phase(time, 1600 + 50 * (i % 29)) + hashedUnit(i, 2, 801)) * kTurn);
        if (glow <= 0) continue;
        const float length = (5 + 12 * depth) * (0.5f + 0.5f * glow);
        Path glint;
        glint.rectangle(x - length, y, x + length, y + 1.2f + 1.8f * depth);
        canvas.fill(glint, {236, 246, 250, 0.75f * glow});
    }
}

void drawBoat(Canvas& canvas, uint32_t time) {
    // It sails between the shore on the left and the tower, turning at both ends, so it never crosses the
    // land.
    const float way = phase(time, 24000);
    const float x = -166 + 46 * std::sin(way * kTurn), y = 118 + 2.5f * std::sin(phase(time, 2400) * kTurn);
    const float lean = 0.06f * std::sin(phase(time, 3200) * kTurn);
    const auto place = [&](float dx, float dy) { return Point{x + dx - dy * lean, y + dy + dx * lean}; };
    canvas.fill(Path{place(-34, 0), place(36, 0), place(24, 17), place(-24, 17)}, {150, 52, 36});
    canvas.fill(Path{place(-34, 0), place(36, 0), place(34, 4), place(-32, 4)}, {246, 242, 232});
    canvas.fill(Path{place(-1.5f, 0), place(-1.5f, -86), place(1.5f, -86), place(1.5f, 0)}, {84, 62, 44});
    canvas.fill(Path{place(4, -82), place(32, -8), place(4, -8)}, {252, 250, 244});
    canvas.fill(Path{place(-4, -76), place(-4, -8), place(-28, -8)}, {240, 186, 50});
    Path wake;
    wake.rectangle(x - 42, y + 17, x + 44, y + 19);
    canvas.fill(wake, {236, 246, 250, 0.7f});
}

void drawBalloon(Canvas& canvas, uint32_t time) {
    constexpr float radius = 50;
    const float x = crossing(time, 40000, 80);
    const float y = -404 + 14 * std::sin(phase(time, 9000) * kTurn);
    static constexpr Colour gores[] = {{214, 40, 48}, {250, 204, 40}, {36, 120, 190}};
    Path envelope, basket, ropes;
    envelope.ellipse(x, y, radius, radius)
        .add({{x - 40, y + 30}, {x + 40, y + 30}, {x + 13, y + 74}, {x - 13, y + 74}});
    ropes.stroke({{x - 11, y + 72}, {x - 8, y + 92}}, 1.5f).stroke({{x + 11, y + 72}, {x + 8, y + 92}}, 1.5f);
    basket.rectangle(x - 10, y + 90, x + 10, y + 104);
    canvas.fillWith(envelope, [&](float px, float py) {
        const float below = std::max(0.0f, py - y) / 74;
        const float across = std::clamp((px - x) / (radius * (1 - 0.6f * below)), -0.999f, 0.999f);
        const int gore = static_cast<int>((std::asin(across) + 1.6f) * 9 / 3.2f);
        return gores[gore % 3].scaled(1.08f - 0.22f * (across + 1) * 0.6f - 0.15f * below);
    });
    canvas.fill(ropes, {70, 60, 50});
    canvas.fill(basket, {140, 92, 48});
}

void drawClocks(Canvas& canvas, uint32_t time) {
    const uint32_t seconds = time / 1000;
    drawHand(canvas, phase(seconds, 12 * 3600), 25, 5, {36, 32, 34});
    drawHand(canvas, phase(seconds, 3600), 38, 3.2f, {36, 32, 34});
    drawHand(canvas, phase(seconds, 60), 41, 1.5f, {206, 30, 36});
    Path hub;
    hub.ellipse(kDial.x, kDial.y, 3, 3);
    canvas.fill(hub, {206, 30, 36});

    char text[16];
    std::snprintf(text, sizeof text, "%02u:%02u:%02u", seconds / 3600 % 24, seconds / 60 % 60, seconds % 60);
    Path board;
    board.rectangle(kBoard.left, kBoard.top, kBoard.right, kBoard.bottom);
    canvas.fill(board, {18, 22, 26});
    canvas.fill(centredTextPath(text, (kBoard.left + kBoard.right) / 2, kBoard.top + 8, 15, 2.4f),
                {255, 176, 40});
    // Tenths of a second as a bar: shows at a glance whether frames are lost.
    Path bar;
    const float full = kBoard.right - kBoard.left - 12;
    bar.rectangle(kBoard.left + 6, kBoard.bottom - 6, kBoard.left + 6 + full * (time % 1000 / 100 + 1) / 10,
                  kBoard.bottom - 4);
    canvas.fill(bar, {90, 220, 120});
}

}  // namespace sio
