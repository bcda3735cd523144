// Outlines in field units, and builders for the common ones.
#pragma once
#include <initializer_list>
#include <vector>

namespace sio {

struct Point {
    float x, y;
};

// Contours are closed implicitly. Every builder adds its contour clockwise, so overlapping ones unite.
class Path {
  public:
    using Contour = std::vector<Point>;

    Path() = default;
    Path(std::initializer_list<Point> polygon) { add(Contour(polygon)); }

    Path& add(Contour polygon);
    Path& rectangle(float left, float top, float right, float bottom);
    Path& ellipse(float x, float y, float radiusX, float radiusY);
    // A line of the given thickness through the points, with square ends.
    Path& stroke(const Contour& line, float thickness);
    // The part of a disc between two angles (radians, 0 to the right, growing clockwise).
    Path& sector(float x, float y, float radius, float from, float to);

    const std::vector<Contour>& contours() const { return m_contours; }

  private:
    std::vector<Contour> m_contours;
};

}  // namespace sio
