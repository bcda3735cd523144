#include "handheld/sio/picture/path.h"

#include <algorithm>
#include <cmath>

namespace sio {
namespace {

constexpr float kTurn = 6.2831853f;

float signedArea(const Path::Contour& polygon) {
    float area = 0;
    for (size_t i = 0; i < polygon.size(); ++i) {
        const Point& a = polygon[i];
        const Point& b = polygon[(i + 1) % polygon.size()];
        area += a.x * b.y - b.x * a.y;
    }
    return area;
}

void addArc(Path::Contour& polygon, Point centre, Point radius, float from, float to) {
    const float largest = std::max(radius.x, radius.y);
    const int steps = std::clamp(static_cast<int>(largest * std::fabs(to - from) / 3), 8, 96);
    for (int i = 0; i <= steps; ++i) {
        const float angle = from + (to - from) * i / steps;
        polygon.push_back({centre.x + radius.x * std::cos(angle), centre.y + radius.y * std::sin(angle)});
    }
}

}  // namespace

Path& Path::add(Contour polygon) {
    if (signedArea(polygon) < 0) std::reverse(polygon.begin(), polygon.end());
    m_contours.push_back(std::move(polygon));
    return *this;
}

Path& Path::rectangle(float left, float top, float right, float bottom) {
    return add({{left, top}, {right, top}, {right, bottom}, {left, bottom}});
}

Path& Path::ellipse(float x, float y, float radiusX, float radiusY) {
    Contour polygon;
    addArc(polygon, {x, y}, {radiusX, radiusY}, 0, kTurn);
    return add(std::move(polygon));
}

Path& Path::sector(float x, float y, float radius, float from, float to) {
    Contour polygon{{x, y}};
    addArc(polygon, {x, y}, {radius, radius}, from, to);
    return add(std::move(polygon));
}

Path& Path::stroke(const Contour& line, float thickness) {
    for (size_t i = 1; i < line.size(); ++i) {
        Point a = line[i - 1], b = line[i];
        const float length = std::hypot(b.x - a.x, b.y - a.y);
        if (length == 0) continue;
        const float alongX = (b.x - a.x) / length * thickness / 2,
                    alongY = (b.y - a.y) / length * thickness / 2;
        a = {a.x - alongX, a.y - alongY};
        b = {b.x + alongX, b.y + alongY};
        add({{a.x - alongY, a.y + alongX},
             {a.x + alongY, a.y - alongX},
             {b.x + alongY, b.y - alongX},
             {b.x - alongY, b.y + alongX}});
    }
    return *this;
}

}  // namespace sio
