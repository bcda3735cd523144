// Which part of the sensor's field a picture shows, and in how many pixels.
#pragma once

namespace sio {

// The field is 1280 x 1024 units, one unit per sensor pixel; the origin is its centre, y points down.
inline constexpr int kFieldWidth = 1280;
inline constexpr int kFieldHeight = 1024;

inline constexpr int kMaxZoom = 2;

// Every view is centred and spans the field's whole width at zoom 0, half at 1, a quarter at 2.
// Its height follows from the picture's shape, so 4:3 pictures leave out the field's outermost rows.
struct View {
    int width;   // pixels
    int height;  // pixels
    int zoom;    // 0..kMaxZoom

    int magnification() const { return 1 << zoom; }
    float unitsPerPixel() const { return static_cast<float>(kFieldWidth) / (width * magnification()); }
    bool operator==(const View& o) const { return width == o.width && height == o.height && zoom == o.zoom; }
};

}  // namespace sio
