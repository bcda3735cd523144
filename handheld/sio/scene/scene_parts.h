// The things of the scene, back to front. Places are in field units: the horizon at 40, the shore near 190.
#pragma once
#include <cstdint>

#include "handheld/sio/picture/canvas.h"

namespace sio {

inline constexpr float kHorizon = 40;
inline constexpr float kShore = 196;

// Standing still.
void drawSky(Canvas& canvas);
void drawLand(Canvas& canvas);
void drawHouse(Canvas& canvas);
void drawTower(Canvas& canvas);
void drawChart(Canvas& canvas);
void drawFigure(Canvas& canvas);

// Moving; time is milliseconds since midnight.
void drawWater(Canvas& canvas, uint32_t time);
void drawBoat(Canvas& canvas, uint32_t time);
void drawBalloon(Canvas& canvas, uint32_t time);
void drawClocks(Canvas& canvas, uint32_t time);
void drawBlink(Canvas& canvas, uint32_t time);

}  // namespace sio
