#include "handheld/sio/card/test_card.h"

#include "handheld/sio/picture/canvas.h"
#include "handheld/sio/picture/lettering.h"

namespace sio {
namespace {

constexpr float kHalfWidth = kFieldWidth / 2, kHalfHeight = kFieldHeight / 2;
constexpr Colour kBars[] = {{235, 235, 235}, {225, 215, 30}, {30, 210, 215}, {35, 200, 50},
                            {205, 40, 200},  {210, 35, 40},  {40, 50, 205}};

// Small enough for the whole message to stay readable at the widest view, cut at the end when too long.
void drawLine(Canvas& canvas, const std::string& text, float y, float height, float scale) {
    constexpr float room = kFieldWidth - 120;
    const size_t fitting = static_cast<size_t>(room / (textWidth("MM", height) - textWidth("M", height)));
    const std::string line = text.size() <= fitting ? text : text.substr(0, fitting - 3) + "...";
    canvas.fill(centredTextPath(line, 0, y * scale, height * scale, height * scale / 7), {250, 250, 250});
}

}  // namespace

void drawTestCard(const std::string& headline, const std::string& detail, const View& view, Picture& into) {
    into.resize(view.width, view.height);
    Canvas canvas(into, view);
    // The message must be read at any zoom, so the card shrinks with the view.
    const float scale = 1.0f / view.magnification();
    constexpr int bars = sizeof kBars / sizeof kBars[0];
    for (int i = 0; i < bars; ++i) {
        Path bar;
        bar.rectangle((-kHalfWidth + kFieldWidth * i / bars) * scale, -kHalfHeight * scale,
                      (-kHalfWidth + kFieldWidth * (i + 1) / bars) * scale, kHalfHeight * scale);
        canvas.fill(bar, kBars[i]);
    }
    Path panel;
    panel.rectangle(-kHalfWidth * scale, -120 * scale, kHalfWidth * scale, 120 * scale);
    canvas.fill(panel, {24, 26, 30});
    drawLine(canvas, headline, -72, 52, scale);
    drawLine(canvas, detail, 32, 36, scale);
}

}  // namespace sio
