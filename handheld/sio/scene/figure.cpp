// The person in the foreground: skin, hair and knitted wool.
#include "handheld/sio/scene/figure.h"

#include <algorithm>

#include "handheld/sio/picture/noise.h"
#include "handheld/sio/scene/scene_parts.h"

namespace sio {
namespace {

constexpr Colour kSkin = {232, 184, 152}, kSkinShade = {186, 122, 94}, kHair = {92, 56, 34};

Path ellipseAt(float x, float y, float radiusX, float radiusY) {
    Path path;
    path.ellipse(x, y, radiusX, radiusY);
    return path;
}

void drawBody(Canvas& canvas) {
    Path shoulders{{kFace.x - 46, 214},  {kFace.x - 120, 244}, {kFace.x - 168, 300}, {kFace.x - 190, 530},
                   {kFace.x + 190, 530}, {kFace.x + 168, 300}, {kFace.x + 120, 244}, {kFace.x + 46, 214}};
    const float finest = std::max(6.0f, canvas.unitsPerPixel() * 2);
    canvas.fillWith(shoulders, [&](float x, float y) {
        const float bend = y + 0.0012f * (x - kFace.x) * (x - kFace.x);
        const bool stripe = std::fmod(bend, 74.0f) < 30;
        const Colour wool = stripe ? Colour{238, 232, 216} : Colour{196, 38, 44};
        const float light = 1.04f - 0.22f * std::fabs(x - kFace.x + 40) / 190;
        return wool.scaled(light + 0.10f * texture(x * 1.4f, y * 0.7f, 12, finest, 701));
    });
    Path neck{
        {kFace.x - 36, 160}, {kFace.x + 36, 160}, {kFace.x + 44, 222}, {kFace.x, 248}, {kFace.x - 44, 222}};
    canvas.fillWith(
        neck, [](float, float y) { return mix(kSkinShade, kSkin, std::clamp((y - 176) / 70, 0.0f, 1.0f)); });
    Path collar;
    collar.stroke(
        {{kFace.x - 50, 208}, {kFace.x - 26, 240}, {kFace.x, 254}, {kFace.x + 26, 240}, {kFace.x + 50, 208}},
        16);
    canvas.fill(collar, {36, 66, 132});
}

void drawHair(Canvas& canvas, const Path& path) {
    canvas.fillWith(path, [](float x, float y) {
        const float strands = texture(x * 2 + y * 0.2f, y * 0.25f, 16, 5, 711);
        const float shine =
            std::max(0.0f, 1 - std::fabs(std::hypot(x - kFace.x, (y - kFace.y) * 0.9f) - 84) / 14);
        return kHair.scaled(1 + 0.35f * strands + 0.35f * shine * (y < kFace.y ? 1.0f : 0.2f));
    });
}

void drawEye(Canvas& canvas, float x) {
    canvas.fill(ellipseAt(x, kEyeY, kEyeRadiusX, kEyeRadiusY), {250, 248, 244});
    canvas.fill(ellipseAt(x, kEyeY, 8.5f, 8.5f), {64, 110, 140});
    canvas.fill(ellipseAt(x, kEyeY, 4.2f, 4.2f), {20, 20, 24});
    canvas.fill(ellipseAt(x - 2.5f, kEyeY - 3, 2, 2), {255, 255, 255});
    Path lid, brow;
    lid.stroke({{x - 15, kEyeY - 3},
                {x - 8, kEyeY - 8.5f},
                {x, kEyeY - 10},
                {x + 8, kEyeY - 8.5f},
                {x + 15, kEyeY - 3}},
               2.6f);
    brow.stroke({{x - 19, kEyeY - 19}, {x - 8, kEyeY - 25}, {x + 6, kEyeY - 25}, {x + 18, kEyeY - 20}}, 5);
    canvas.fill(lid, {70, 42, 30});
    canvas.fill(brow, kHair);
}

void drawFeatures(Canvas& canvas) {
    for (float side : {-1.0f, 1.0f}) {
        drawEye(canvas, kFace.x + side * kEyeOffsetX);
        const float cheekX = kFace.x + side * 40, cheekY = kFace.y + 30;
        canvas.fillWith(ellipseAt(cheekX, cheekY, 24, 19), [=](float x, float y) {
            const float t = 1 - std::hypot((x - cheekX) / 24, (y - cheekY) / 19);
            return Colour{226, 110, 96, t > 0 ? 0.42f * t : 0};
        });
    }
    Path nose, smile, teeth;
    nose.stroke({{kFace.x + 3, kFace.y - 2},
                 {kFace.x + 11, kFace.y + 26},
                 {kFace.x + 7, kFace.y + 32},
                 {kFace.x - 7, kFace.y + 32}},
                3);
    canvas.fill(nose, {188, 120, 92});
    smile.add({{kFace.x - 33, kFace.y + 46},
               {kFace.x - 16, kFace.y + 52},
               {kFace.x, kFace.y + 54},
               {kFace.x + 16, kFace.y + 52},
               {kFace.x + 33, kFace.y + 46},
               {kFace.x + 20, kFace.y + 63},
               {kFace.x, kFace.y + 69},
               {kFace.x - 20, kFace.y + 63}});
    canvas.fill(smile, {172, 52, 56});
    teeth.add({{kFace.x - 24, kFace.y + 51},
               {kFace.x, kFace.y + 56},
               {kFace.x + 24, kFace.y + 51},
               {kFace.x + 15, kFace.y + 58},
               {kFace.x - 15, kFace.y + 58}});
    canvas.fill(teeth, {252, 250, 246});
}

}  // namespace

void drawFigure(Canvas& canvas) {
    drawHair(canvas, ellipseAt(kFace.x, kFace.y - 8, kFaceRadiusX + 22, kFaceRadiusY + 20));
    Path locks;
    locks.rectangle(kFace.x - 94, kFace.y, kFace.x - 54, kFace.y + 112)
        .rectangle(kFace.x + 54, kFace.y, kFace.x + 94, kFace.y + 112);
    drawHair(canvas, locks);
    drawBody(canvas);
    canvas.fillWith(ellipseAt(kFace.x, kFace.y, kFaceRadiusX, kFaceRadiusY), [](float x, float y) {
        const float dx = (x - kFace.x + 22) / 110, dy = (y - kFace.y + 20) / 130;
        const float shade = std::clamp((dx * dx + dy * dy - 0.15f) * 1.1f, 0.0f, 1.0f);
        return mix(kSkin, kSkinShade, shade);
    });
    Path fringe;
    fringe.add({{kFace.x - 80, kFace.y - 22},
                {kFace.x - 70, kFace.y - 74},
                {kFace.x - 30, kFace.y - 108},
                {kFace.x + 30, kFace.y - 108},
                {kFace.x + 72, kFace.y - 72},
                {kFace.x + 80, kFace.y - 22},
                {kFace.x + 56, kFace.y - 52},
                {kFace.x + 14, kFace.y - 66},
                {kFace.x - 26, kFace.y - 54},
                {kFace.x - 56, kFace.y - 50}});
    drawHair(canvas, fringe);
    drawFeatures(canvas);
}

void drawBlink(Canvas& canvas, uint32_t time) {
    // Both eyes close for a moment every four seconds.
    if (time % 4000 >= 160) return;
    for (float side : {-1.0f, 1.0f}) {
        const float x = kFace.x + side * kEyeOffsetX;
        canvas.fill(ellipseAt(x, kEyeY, kEyeRadiusX + 1.5f, kEyeRadiusY + 1.5f), {226, 176, 144});
        Path lash;
        lash.stroke({{x - 15, kEyeY + 2}, {x, kEyeY + 7}, {x + 15, kEyeY + 2}}, 3);
        canvas.fill(lash, {70, 42, 30});
    }
}

}  // namespace sio
