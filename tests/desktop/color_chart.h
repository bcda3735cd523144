// A colour chart for the card to look at: 16 x 12 patches, no two alike, whose colours change evenly from edge to
// edge, so that every centred part of it is equally bright and gets the same exposure.
#pragma once
#include <filesystem>
#include <optional>

#include "desktop/picture_file.h"

inline constexpr int kChartColumns = 16, kChartRows = 12;

// Writes the chart as the only picture of a new folder.
void MakeChartFolder(const std::filesystem::path& folder);

// A part of the chart that a picture shows, as shares of the chart's width and height.
struct ChartView {
    double left, top, width, height;
};

// The centred part of the view's shape at a zoom level: all of the chart's height at 4:3 and level 0.
ChartView ViewOfChart(int width, int height, int zoom);

// The patch that a rectangle of a picture lies in altogether, numbered row by row; nothing when it lies across edges.
struct PixelBox {
    double left, top, right, bottom;
};
std::optional<int> PatchAt(const ChartView& view, int width, int height, const PixelBox& box);

// Colour of a patch in a picture of the view: the mean of its middle; -1 where the picture does not show that.
struct PatchColor {
    double blue = -1, green = -1, red = -1;
};
PatchColor ColorOfPatch(const PixelPicture& picture, const ChartView& view, int patch);
