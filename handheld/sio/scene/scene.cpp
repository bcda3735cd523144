#include "handheld/sio/scene/scene.h"

#include "handheld/sio/scene/scene_parts.h"

namespace sio {
namespace {

// The live view's and the last still's; more would hold megabytes for views seldom returned to.
constexpr size_t kKeptBackgrounds = 2;

}  // namespace

const Picture& CScene::background(const View& view) {
    for (const Background& kept : m_backgrounds) {
        if (kept.view == view) return kept.picture;
    }
    if (m_backgrounds.size() == kKeptBackgrounds) m_backgrounds.pop_back();
    Background fresh{view, {}};
    fresh.picture.resize(view.width, view.height);
    Canvas canvas(fresh.picture, view);
    drawSky(canvas);
    drawLand(canvas);
    drawHouse(canvas);
    drawTower(canvas);
    drawChart(canvas);
    drawFigure(canvas);
    return m_backgrounds.insert(m_backgrounds.begin(), std::move(fresh))->picture;
}

void CScene::draw(uint32_t timeOfDay, const View& view, Picture& into) {
    into = background(view);
    Canvas canvas(into, view);
    drawWater(canvas, timeOfDay);
    drawBoat(canvas, timeOfDay);
    drawBalloon(canvas, timeOfDay);
    drawClocks(canvas, timeOfDay);
    drawBlink(canvas, timeOfDay);
}

}  // namespace sio
