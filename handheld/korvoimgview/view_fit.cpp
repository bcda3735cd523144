#include "handheld/korvoimgview/view_fit.h"

#include <algorithm>

namespace viewer {
namespace {

// 25 % to 400 % in steps that the eye takes as even.
constexpr uint32_t kLadder[] = {kWhole / 4,     kWhole / 2, kWhole * 3 / 4, kWhole,
                                kWhole * 3 / 2, kWhole * 2, kWhole * 3,     kWhole * 4};
constexpr uint32_t kLargest = kWhole * 4;

int Scaled(int length, uint32_t scale) {
    return std::max<int>(1, static_cast<int>((int64_t{length} * scale + kWhole / 2) / kWhole));
}

int Clamped(int offset, int scaled, int area) {
    return scaled <= area ? (area - scaled) / 2 : std::clamp(offset, area - scaled, 0);
}

// The offset that keeps the picture's point in the middle of the area.
int Recentred(int offset, int area, uint32_t from, uint32_t to) {
    const int64_t middle = (int64_t{area} / 2 - offset) * to / from;
    return static_cast<int>(area / 2 - middle);
}

}  // namespace

Size ScaledSize(Size picture, uint32_t scale) {
    return {Scaled(picture.width, scale), Scaled(picture.height, scale)};
}

uint32_t FitScale(Size picture, Size area) {
    const uint64_t wide = uint64_t{kWhole} * static_cast<uint64_t>(area.width) / picture.width;
    const uint64_t high = uint64_t{kWhole} * static_cast<uint64_t>(area.height) / picture.height;
    return static_cast<uint32_t>(std::clamp<uint64_t>(std::min(wide, high), 1, kLargest));
}

View FitView(Size picture, Size area) {
    return Panned({FitScale(picture, area), 0, 0}, picture, area, 0, 0);
}

uint32_t LargerScale(uint32_t scale, uint32_t fit) {
    for (uint32_t step : kLadder)
        if (step > scale && step > fit) return step;
    return scale;
}

uint32_t SmallerScale(uint32_t scale, uint32_t fit) {
    uint32_t found = fit;
    for (uint32_t step : kLadder)
        if (step < scale && step > fit) found = step;
    return std::min(found, scale);
}

uint32_t ToggledScale(uint32_t scale, uint32_t fit) {
    if (scale != fit) return fit;
    return fit == kWhole ? 2 * kWhole : kWhole;
}

View Zoomed(View view, Size picture, Size area, uint32_t scale) {
    const View zoomed = {scale, Recentred(view.x, area.width, view.scale, scale),
                         Recentred(view.y, area.height, view.scale, scale)};
    return Panned(zoomed, picture, area, 0, 0);
}

View Panned(View view, Size picture, Size area, int dx, int dy) {
    const Size scaled = ScaledSize(picture, view.scale);
    return {view.scale, Clamped(view.x + dx, scaled.width, area.width),
            Clamped(view.y + dy, scaled.height, area.height)};
}

}  // namespace viewer
