// The clock tower in the middle and the house beside it.
#include <algorithm>

#include "handheld/sio/picture/lettering.h"
#include "handheld/sio/picture/noise.h"
#include "handheld/sio/scene/clock_faces.h"
#include "handheld/sio/scene/scene_parts.h"

namespace sio {
namespace {

constexpr float kTowerHalf = 82, kTowerTop = -142, kTowerFoot = 262;

// Courses of stone: rows of 16 units, every second one shifted by half a stone.
Colour masonry(float x, float y, const Colour& stone, float joint, float finest) {
    constexpr float course = 16, length = 34;
    const int row = static_cast<int>(std::floor(y / course));
    const float shifted = x / length + (row & 1) * 0.5f;
    const int column = static_cast<int>(std::floor(shifted));
    const float toJoint = std::min((y / course - row) * course, (shifted - column) * length);
    const float tint = 0.06f * (hashedUnit(column, row, 601) - 0.5f) + 0.05f * texture(x, y, 8, finest, 611);
    return stone.scaled((toJoint < 1.6f ? joint : 1) + tint);
}

void drawRoof(Canvas& canvas, const Path& path, float left, float right, const Colour& colour) {
    canvas.fillWith(path, [=](float x, float y) {
        const float tile = std::fabs(std::fmod(y + 2000, 11.0f) - 5.5f) / 5.5f;
        const float light = 1.1f - 0.35f * (x - left) / (right - left);
        return colour.scaled(light * (0.86f + 0.14f * tile) + 0.05f * texture(x, y, 12, 5, 621));
    });
}

void drawWindow(Canvas& canvas, float x, float y, float width, float height) {
    Path frame, glass, bars;
    frame.rectangle(x - width / 2 - 4, y - 4, x + width / 2 + 4, y + height + 4);
    glass.rectangle(x - width / 2, y, x + width / 2, y + height);
    bars.rectangle(x - 1.5f, y, x + 1.5f, y + height)
        .rectangle(x - width / 2, y + height * 0.45f, x + width / 2, y + height * 0.45f + 3);
    canvas.fill(frame, {248, 246, 238});
    canvas.fillWith(glass, [=](float px, float py) {
        return mix({60, 88, 112}, {168, 200, 222},
                   std::clamp((py - y) / height * 0.6f + (px - x) / width * 0.5f, 0.0f, 1.0f));
    });
    canvas.fill(bars, {248, 246, 238});
}

void drawPlaque(Canvas& canvas) {
    Path plate, rim;
    rim.rectangle(-66, 48, 66, 120);
    plate.rectangle(-63, 51, 63, 117);
    canvas.fill(rim, {120, 92, 40});
    canvas.fill(plate, {244, 236, 214});
    // Lines from coarse to fine: how far down one can read tells how sharp the picture is.
    struct Line {
        const char* text;
        float y, height, thickness;
    };
    static constexpr Line lines[] = {
        {"HARBOUR", 56, 13, 2.3f},
        {"LUMETTA", 74, 9.5f, 1.7f},
        {"ABCDEFGHIJKLM", 88, 7, 1.2f},
        {"NOPQRSTUVWXYZ 0123456789", 99, 4.6f, 0.8f},
        {"THE QUICK BROWN FOX JUMPS OVER THE DOG", 107, 2.9f, 0.55f},
        {"FINE LETTERING FOR THE CLOSEST ZOOM OF ALL: 0123456789", 112.5f, 2.0f, 0.4f},
    };
    for (const Line& line : lines) {
        canvas.fill(centredTextPath(line.text, 0, line.y, line.height, line.thickness), {46, 38, 30});
    }
}

void drawDial(Canvas& canvas) {
    Path rim, dial;
    rim.ellipse(kDial.x, kDial.y, kDialRadius + 7, kDialRadius + 7);
    dial.ellipse(kDial.x, kDial.y, kDialRadius, kDialRadius);
    canvas.fill(rim, {92, 74, 46});
    canvas.fill(dial, {250, 247, 236});
    for (int minute = 0; minute < 60; ++minute) {
        const bool hour = minute % 5 == 0;
        const float angle = minute * 6.2831853f / 60;
        const float inner = kDialRadius * (hour ? 0.82f : 0.91f), outer = kDialRadius * 0.96f;
        const float c = std::cos(angle), s = std::sin(angle);
        Path tick;
        tick.stroke({{kDial.x + c * inner, kDial.y + s * inner}, {kDial.x + c * outer, kDial.y + s * outer}},
                    hour ? 3.0f : 1.2f);
        canvas.fill(tick, {40, 36, 34});
    }
}

}  // namespace

void drawTower(Canvas& canvas) {
    Path shadow;
    shadow.ellipse(46, kTowerFoot, 130, 15);
    canvas.fill(shadow, {30, 60, 26, 0.45f});
    Path body;
    body.rectangle(-kTowerHalf, kTowerTop, kTowerHalf, kTowerFoot);
    const float finest = std::max(6.0f, canvas.unitsPerPixel() * 2);
    canvas.fillWith(body, [&](float x, float y) {
        const float light = 1.02f - 0.20f * (x + kTowerHalf) / (2 * kTowerHalf);
        return masonry(x, y, Colour{236, 224, 200}.scaled(light), 0.86f, finest);
    });
    Path cornice, roof, ball, pole;
    cornice.rectangle(-kTowerHalf - 9, kTowerTop - 6, kTowerHalf + 9, kTowerTop + 9);
    roof.add({{-kTowerHalf - 12, kTowerTop - 6}, {0, kTowerTop - 150}, {kTowerHalf + 12, kTowerTop - 6}});
    pole.rectangle(-1.5f, kTowerTop - 178, 1.5f, kTowerTop - 145);
    ball.ellipse(0, kTowerTop - 152, 6, 6);
    drawRoof(canvas, roof, -kTowerHalf, kTowerHalf, {62, 110, 126});
    canvas.fill(cornice, {244, 236, 216});
    canvas.fill(pole, {70, 66, 60});
    canvas.fill(ball, {238, 196, 70});
    drawDial(canvas);
    Path board;
    board.rectangle(kBoard.left - 5, kBoard.top - 5, kBoard.right + 5, kBoard.bottom + 5);
    canvas.fill(board, {96, 90, 84});
    drawPlaque(canvas);
    Path door;
    door.rectangle(-26, 176, 26, kTowerFoot).ellipse(0, 176, 26, 24);
    canvas.fillWith(door, [](float x, float y) {
        const float plank = std::fmod(x + 260, 10.4f) < 1.4f ? 0.7f : 1;
        return Colour{112, 66, 38}.scaled(plank + 0.08f * texture(x * 4, y * 0.5f, 14, 5, 631));
    });
}

void drawHouse(Canvas& canvas) {
    constexpr float left = -470, right = -250, top = 70, foot = 248;
    Path shadow;
    shadow.ellipse(-330, foot, 150, 13);
    canvas.fill(shadow, {30, 60, 26, 0.4f});
    Path wall, roof, chimney, door;
    wall.rectangle(left, top, right, foot);
    canvas.fillWith(wall, [&](float x, float y) {
        return Colour{238, 222, 190}.scaled(1 - 0.12f * (x - left) / (right - left) +
                                            0.04f * texture(x, y, 10, 5, 641));
    });
    chimney.rectangle(-300, -48, -270, 40);
    canvas.fillWith(chimney, [&](float x, float y) { return masonry(x, y, {178, 84, 60}, 1.25f, 4); });
    roof.add({{left - 22, top + 6}, {-410, -20}, {-304, -20}, {right + 22, top + 6}});
    drawRoof(canvas, roof, left, right, {196, 74, 48});
    drawWindow(canvas, -424, 102, 40, 52);
    drawWindow(canvas, -292, 102, 40, 52);
    door.rectangle(-384, 152, -338, foot);
    canvas.fill(door, {38, 96, 84});
    Path panel;
    panel.rectangle(-376, 162, -346, 196).rectangle(-376, 204, -346, 238);
    canvas.fill(panel, {52, 118, 104});
}

}  // namespace sio
