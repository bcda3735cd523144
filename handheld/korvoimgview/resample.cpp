#include "handheld/korvoimgview/resample.h"

#include <algorithm>
#include <cmath>

namespace viewer {
namespace {

constexpr int kUnit = 1 << 14;  // sum of the weights of one pixel

// The source pixels first .. first + count - 1 that make one target pixel.
struct Taps {
    int first, count;
    size_t weights;  // where their weights begin
};

// How one axis of the picture maps to the pixels begin .. end - 1 of the area.
struct Axis {
    int begin = 0, end = 0;
    std::vector<Taps> taps;
    std::vector<int> weights;
};

// A triangle as wide as a target pixel when shrinking, as a source pixel when enlarging.
void AddTaps(Axis& axis, double middle, double radius, int length) {
    const int first = std::clamp(static_cast<int>(std::floor(middle - radius)) + 1, 0, length - 1);
    const int last = std::clamp(static_cast<int>(std::ceil(middle + radius)) - 1, first, length - 1);
    double sum = 0;
    std::vector<double> exact;
    for (int i = first; i <= last; ++i) {
        exact.push_back(std::max(1.0 - std::fabs(i - middle) / radius, 1e-9));
        sum += exact.back();
    }
    const size_t start = axis.weights.size();
    int given = 0;
    for (double weight : exact) {
        axis.weights.push_back(static_cast<int>(std::lround(weight / sum * kUnit)));
        given += axis.weights.back();
    }
    // Rounding must not darken or brighten a plain surface.
    *std::max_element(axis.weights.begin() + static_cast<std::ptrdiff_t>(start), axis.weights.end()) +=
        kUnit - given;
    axis.taps.push_back({first, last - first + 1, start});
}

Axis MakeAxis(int length, int scaled, int offset, int area) {
    Axis axis;
    axis.begin = std::clamp(offset, 0, area);
    axis.end = std::clamp(offset + scaled, axis.begin, area);
    const double step = static_cast<double>(length) / scaled;
    for (int i = axis.begin; i < axis.end; ++i)
        AddTaps(axis, (i - offset + 0.5) * step - 0.5, std::max(step, 1.0), length);
    return axis;
}

uint32_t Channel(int sum) {
    return static_cast<uint32_t>(std::clamp((sum + kUnit / 2) / kUnit, 0, 255));
}

// The weighted mean of pixels that lie `stride` apart.
uint32_t Blend(const uint32_t* from, size_t stride, const int* weights, int count) {
    int red = 0, green = 0, blue = 0;
    for (int i = 0; i < count; ++i, from += stride) {
        red += weights[i] * static_cast<int>(*from >> 16 & 0xFF);
        green += weights[i] * static_cast<int>(*from >> 8 & 0xFF);
        blue += weights[i] * static_cast<int>(*from & 0xFF);
    }
    return Channel(red) << 16 | Channel(green) << 8 | Channel(blue);
}

}  // namespace

void DrawView(const Pixels& picture, const View& view, uint32_t background, Pixels& area) {
    std::fill(area.data.begin(), area.data.end(), background);
    if (picture.data.empty()) return;
    const Size scaled = ScaledSize({picture.width, picture.height}, view.scale);
    const Axis across = MakeAxis(picture.width, scaled.width, view.x, area.width);
    const Axis down = MakeAxis(picture.height, scaled.height, view.y, area.height);
    if (across.taps.empty() || down.taps.empty()) return;

    // Only the rows that the area shows are narrowed, each once.
    const int firstRow = down.taps.front().first;
    const int endRow = down.taps.back().first + down.taps.back().count;
    Pixels narrowed;
    narrowed.Allocate(across.end - across.begin, endRow - firstRow);
    for (int y = firstRow; y < endRow; ++y) {
        uint32_t* to = narrowed.Row(y - firstRow);
        for (const Taps& taps : across.taps)
            *to++ = Blend(picture.Row(y) + taps.first, 1, &across.weights[taps.weights], taps.count);
    }
    for (int y = down.begin; y < down.end; ++y) {
        const Taps& taps = down.taps[static_cast<size_t>(y - down.begin)];
        const uint32_t* from = narrowed.Row(taps.first - firstRow);
        uint32_t* to = area.Row(y) + across.begin;
        for (int x = 0; x < narrowed.width; ++x)
            to[x] =
                Blend(from + x, static_cast<size_t>(narrowed.width), &down.weights[taps.weights], taps.count);
    }
}

}  // namespace viewer
