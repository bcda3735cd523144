// The test chart in the foreground: saturated colours, grey steps, a star for sharpness.
#include "handheld/sio/picture/lettering.h"
#include "handheld/sio/scene/scene_parts.h"

namespace sio {
namespace {

constexpr float kLeft = -612, kTop = 288, kPatch = 52, kGap = 6;
constexpr int kColumns = 8;
constexpr float kRight = kLeft + 12 + kColumns * (kPatch + kGap) + 120;
constexpr float kBottom = kTop + 176;

constexpr Colour kPatches[kColumns] = {{220, 30, 36},  {24, 160, 60},  {30, 60, 200},  {30, 176, 206},
                                       {206, 40, 150}, {248, 214, 20}, {240, 130, 24}, {110, 60, 160}};

void drawStar(Canvas& canvas, float x, float y, float radius) {
    constexpr int spokes = 18;
    constexpr float step = 6.2831853f / (2 * spokes);
    Path ground, star;
    ground.ellipse(x, y, radius, radius);
    for (int i = 0; i < spokes; ++i) star.sector(x, y, radius, 2 * i * step, (2 * i + 1) * step);
    canvas.fill(ground, {250, 250, 250});
    canvas.fill(star, {16, 16, 16});
}

}  // namespace

void drawChart(Canvas& canvas) {
    Path legs, shadow, board, rim;
    legs.rectangle(kLeft + 60, kBottom, kLeft + 72, kBottom + 60)
        .rectangle(kRight - 72, kBottom, kRight - 60, kBottom + 60);
    shadow.rectangle(kLeft + 8, kTop + 8, kRight + 8, kBottom + 8);
    rim.rectangle(kLeft - 3, kTop - 3, kRight + 3, kBottom + 3);
    board.rectangle(kLeft, kTop, kRight, kBottom);
    canvas.fill(legs, {104, 70, 42});
    canvas.fill(shadow, {20, 40, 20, 0.4f});
    canvas.fill(rim, {60, 56, 52});
    canvas.fill(board, {236, 234, 228});
    for (int i = 0; i < kColumns; ++i) {
        const float left = kLeft + 12 + i * (kPatch + kGap);
        const float grey = 8 + 240.0f * i / (kColumns - 1);
        Path colour, step;
        colour.rectangle(left, kTop + 12, left + kPatch, kTop + 12 + kPatch + 10);
        step.rectangle(left, kTop + 80, left + kPatch, kTop + 80 + kPatch);
        canvas.fill(colour, kPatches[i]);
        canvas.fill(step, {grey, grey, grey});
    }
    canvas.fill(textPath("LUMETTA 0123456789 ABCXYZ", kLeft + 14, kTop + 145, 17, 2.6f), {30, 30, 34});
    drawStar(canvas, kRight - 66, kTop + 70, 54);
    canvas.fill(centredTextPath("FOCUS", kRight - 66, kTop + 145, 17, 2.6f), {30, 30, 34});
}

}  // namespace sio
