#include "handheld/sio/picture/canvas.h"

#include <algorithm>

namespace sio {

Canvas::Canvas(Picture& target, const View& view) : m_target(target), m_unitsPerPixel(view.unitsPerPixel()) {}

// Prepares the coverage of a path; false when it lies outside the picture.
bool Canvas::cover(const Path& path) {
    float left = 1e9f, top = 1e9f, right = -1e9f, bottom = -1e9f;
    for (const Path::Contour& contour : path.contours()) {
        for (const Point& point : contour) {
            const Point p = toPixels(point);
            left = std::min(left, p.x), right = std::max(right, p.x);
            top = std::min(top, p.y), bottom = std::max(bottom, p.y);
        }
    }
    if (left >= m_target.width || top >= m_target.height || right <= 0 || bottom <= 0) return false;
    m_left = std::max(0, static_cast<int>(std::floor(left)));
    m_top = std::max(0, static_cast<int>(std::floor(top)));
    m_right = std::min(m_target.width, static_cast<int>(std::ceil(right)));
    m_bottom = std::min(m_target.height, static_cast<int>(std::ceil(bottom)));
    if (m_left >= m_right || m_top >= m_bottom) return false;

    m_stride = m_right - m_left + 2;
    m_steps.assign(static_cast<size_t>(m_stride) * (m_bottom - m_top), 0.0f);
    for (const Path::Contour& contour : path.contours()) {
        for (size_t i = 0; i < contour.size(); ++i) {
            addEdge(toPixels(contour[i]), toPixels(contour[(i + 1) % contour.size()]));
        }
    }
    return true;
}

void Canvas::addEdge(Point from, Point to) {
    if (from.y == to.y) return;
    const float sign = from.y < to.y ? 1.0f : -1.0f;
    if (sign < 0) std::swap(from, to);
    const float slope = (to.x - from.x) / (to.y - from.y);
    const int first = std::max(m_top, static_cast<int>(std::floor(from.y)));
    const int last = std::min(m_bottom, static_cast<int>(std::ceil(to.y)));
    for (int y = first; y < last; ++y) {
        const float upper = std::max(from.y, static_cast<float>(y));
        const float lower = std::min(to.y, static_cast<float>(y + 1));
        if (lower <= upper) continue;
        addSlice(m_steps.data() + static_cast<size_t>(y - m_top) * m_stride,
                 from.x + (upper - from.y) * slope, from.x + (lower - from.y) * slope,
                 sign * (lower - upper));
    }
}

// One edge within one pixel row: right of it the coverage is signedHeight, under it the share of the area.
void Canvas::addSlice(float* step, float fromX, float toX, float signedHeight) {
    const float span = static_cast<float>(m_right - m_left);
    float left = std::clamp(fromX - m_left, 0.0f, span), right = std::clamp(toX - m_left, 0.0f, span);
    if (left > right) std::swap(left, right);
    const int first = static_cast<int>(left), last = static_cast<int>(right);
    if (first == last) {
        const float inside = 1 - ((left + right) * 0.5f - first);
        step[first] += signedHeight * inside;
        step[first + 1] += signedHeight * (1 - inside);
        return;
    }
    // The coverage that has arrived up to a place is a parabola in the entry pixel, then straight, then a
    // parabola.
    const float density = signedHeight / (right - left);
    float reached = 0;
    for (int x = first; x <= last; ++x) {
        const float from = std::max(left, static_cast<float>(x)),
                    to = std::min(right, static_cast<float>(x + 1));
        const float height = density * (to - from);
        const float inside = height * (x + 1 - (from + to) * 0.5f);
        step[x] += inside;
        step[x + 1] += height - inside;
        reached += height;
    }
    step[last + 1] += signedHeight - reached;
}

}  // namespace sio
