#include "desktop/color_chart.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kInner = 0.35;  // share of a patch that its edges may colour, on each side

constexpr int kWidth = 1280, kHeight = 960;

void PaintPatch(int column, int row, uint8_t* pixel) {
    const double across = column - (kChartColumns - 1) / 2.0, down = row - (kChartRows - 1) / 2.0;
    const auto level = [](double offset) { return static_cast<uint8_t>(std::lround(128 + offset)); };
    pixel[0] = level(-6 * across + 9 * down);
    pixel[1] = level(18 * down);
    pixel[2] = level(14 * across);
}

}  // namespace

void MakeChartFolder(const std::filesystem::path& folder) {
    PixelPicture chart;
    chart.width = kWidth;
    chart.height = kHeight;
    chart.pixels.resize(size_t{kWidth} * kHeight * 3);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            PaintPatch(x * kChartColumns / kWidth, y * kChartRows / kHeight,
                       &chart.pixels[(static_cast<size_t>(y) * kWidth + x) * 3]);
    std::filesystem::create_directories(folder);
    WritePicture(folder / "chart.png", chart);
}

ChartView ViewOfChart(int width, int height, int zoom) {
    const double chart = static_cast<double>(kWidth) / kHeight, shape = static_cast<double>(width) / height;
    const double share = 1.0 / (1 << zoom);
    const double viewWidth = share * std::min(1.0, shape / chart), viewHeight = share * std::min(1.0, chart / shape);
    return {(1 - viewWidth) / 2, (1 - viewHeight) / 2, viewWidth, viewHeight};
}

std::optional<int> PatchAt(const ChartView& view, int width, int height, const PixelBox& box) {
    const auto column = [&](double x) { return std::floor((view.left + x / width * view.width) * kChartColumns); };
    const auto row = [&](double y) { return std::floor((view.top + y / height * view.height) * kChartRows); };
    if (column(box.left) != column(box.right) || row(box.top) != row(box.bottom)) return std::nullopt;
    return static_cast<int>(row(box.top) * kChartColumns + column(box.left));
}

PatchColor ColorOfPatch(const PixelPicture& picture, const ChartView& view, int patch) {
    const double column = patch % kChartColumns, row = patch / kChartColumns;
    const auto across = [&](double place) { return (place / kChartColumns - view.left) / view.width * picture.width; };
    const auto down = [&](double place) { return (place / kChartRows - view.top) / view.height * picture.height; };
    const int left = static_cast<int>(std::ceil(across(column + kInner))), right = static_cast<int>(across(column + 1 - kInner));
    const int top = static_cast<int>(std::ceil(down(row + kInner))), bottom = static_cast<int>(down(row + 1 - kInner));
    if (left < 0 || top < 0 || right > picture.width || bottom > picture.height || left >= right || top >= bottom)
        return {};
    PatchColor sum = {0, 0, 0};
    for (int y = top; y < bottom; ++y) {
        for (int x = left; x < right; ++x) {
            const uint8_t* const pixel = picture.At(x, y);
            sum.blue += pixel[0];
            sum.green += pixel[1];
            sum.red += pixel[2];
        }
    }
    const double count = static_cast<double>(right - left) * (bottom - top);
    return {sum.blue / count, sum.green / count, sum.red / count};
}
