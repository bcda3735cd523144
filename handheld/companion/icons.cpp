#include "handheld/companion/icons.h"

#include <iterator>

namespace handheld {
namespace {

// One stroke or surface.  Coordinates are quarters of a pixel in a square of kIconSize pixels.
struct Shape {
    enum Kind { none, surface, line, ring, disc } kind;
    int thick;  // of a line or ring
    int count;  // points of a surface or line; ring and disc: 2, opposite corners of their box
    POINT points[8];
};

constexpr int kMost = 7;
struct IconShapes {
    Shape shapes[kMost];
};

// In the order of the icons.
constexpr IconShapes kIcons[] = {
    // previous, next
    {{{Shape::line, 13, 3, {{58, 22}, {34, 48}, {58, 74}}}}},
    {{{Shape::line, 13, 3, {{38, 22}, {62, 48}, {38, 74}}}}},
    // up, down
    {{{Shape::line, 13, 3, {{22, 58}, {48, 34}, {74, 58}}}}},
    {{{Shape::line, 13, 3, {{22, 38}, {48, 62}, {74, 38}}}}},
    // zoomIn, zoomOut: a magnifying glass
    {{{Shape::ring, 7, 2, {{14, 14}, {62, 62}}},
      {Shape::line, 12, 2, {{60, 60}, {80, 80}}},
      {Shape::line, 7, 2, {{27, 38}, {49, 38}}},
      {Shape::line, 7, 2, {{38, 27}, {38, 49}}}}},
    {{{Shape::ring, 7, 2, {{14, 14}, {62, 62}}},
      {Shape::line, 12, 2, {{60, 60}, {80, 80}}},
      {Shape::line, 7, 2, {{27, 38}, {49, 38}}}}},
    // wholePicture: the four corners of a frame
    {{{Shape::line, 8, 3, {{16, 36}, {16, 20}, {34, 20}}},
      {Shape::line, 8, 3, {{62, 20}, {80, 20}, {80, 36}}},
      {Shape::line, 8, 3, {{80, 60}, {80, 76}, {62, 76}}},
      {Shape::line, 8, 3, {{34, 76}, {16, 76}, {16, 60}}},
      {Shape::surface, 0, 4, {{34, 38}, {62, 38}, {62, 58}, {34, 58}}}}},
    // ownSize: "1:1"
    {{{Shape::line, 8, 3, {{16, 34}, {28, 24}, {28, 74}}},
      {Shape::disc, 0, 2, {{43, 36}, {53, 46}}},
      {Shape::disc, 0, 2, {{43, 58}, {53, 68}}},
      {Shape::line, 8, 3, {{62, 34}, {74, 24}, {74, 74}}}}},
    // play, pause
    {{{Shape::surface, 0, 3, {{30, 14}, {30, 82}, {78, 48}}}}},
    {{{Shape::surface, 0, 4, {{26, 18}, {42, 18}, {42, 78}, {26, 78}}},
      {Shape::surface, 0, 4, {{54, 18}, {70, 18}, {70, 78}, {54, 78}}}}},
    // camera: body, viewfinder, lens
    {{{Shape::line, 7, 5, {{12, 34}, {84, 34}, {84, 78}, {12, 78}, {12, 34}}},
      {Shape::surface, 0, 4, {{32, 33}, {38, 20}, {58, 20}, {64, 33}}},
      {Shape::ring, 7, 2, {{35, 43}, {61, 69}}}}},
    // back: an arrow
    {{{Shape::line, 10, 2, {{24, 48}, {82, 48}}}, {Shape::line, 10, 3, {{44, 24}, {20, 48}, {44, 72}}}}},
    // contents: a list
    {{{Shape::disc, 0, 2, {{12, 20}, {24, 32}}},
      {Shape::disc, 0, 2, {{12, 42}, {24, 54}}},
      {Shape::disc, 0, 2, {{12, 64}, {24, 76}}},
      {Shape::line, 8, 2, {{36, 26}, {82, 26}}},
      {Shape::line, 8, 2, {{36, 48}, {82, 48}}},
      {Shape::line, 8, 2, {{36, 70}, {82, 70}}}}},
    // close: a cross in a ring, as at the right end of every title bar
    {{{Shape::ring, 4, 2, {{12, 12}, {84, 84}}},
      {Shape::line, 8, 2, {{36, 36}, {60, 60}}},
      {Shape::line, 8, 2, {{60, 36}, {36, 60}}}}},
};
static_assert(std::size(kIcons) == static_cast<size_t>(Icon::close) + 1);

constexpr int kFine = 4;  // points across and down that decide one pixel
constexpr int kFineSize = kIconSize * kFine;

void DrawShape(HDC to, const Shape& shape) {
    const bool solid = shape.kind == Shape::surface || shape.kind == Shape::disc;
    // A pen of width 0 would still be one point wide.
    const LOGBRUSH ink = {BS_SOLID, RGB(255, 255, 255), 0};
    HPEN pen = solid ? static_cast<HPEN>(GetStockObject(NULL_PEN))
                     : ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_ROUND | PS_JOIN_ROUND,
                                    static_cast<DWORD>(shape.thick), &ink, 0, nullptr);
    HGDIOBJ penBefore = SelectObject(to, pen);
    HGDIOBJ brushBefore = SelectObject(to, GetStockObject(solid ? WHITE_BRUSH : NULL_BRUSH));
    const POINT* at = shape.points;
    if (shape.kind == Shape::surface)
        Polygon(to, at, shape.count);
    else if (shape.kind == Shape::line)
        Polyline(to, at, shape.count);
    else
        Ellipse(to, at[0].x, at[0].y, at[1].x, at[1].y);
    SelectObject(to, penBefore);
    SelectObject(to, brushBefore);
    DeleteObject(pen);
}

COLORREF Mixed(COLORREF under, COLORREF over, int share) {
    constexpr int kAll = kFine * kFine;
    const auto mix = [&](int a, int b) { return static_cast<BYTE>((a * (kAll - share) + b * share) / kAll); };
    return RGB(mix(GetRValue(under), GetRValue(over)), mix(GetGValue(under), GetGValue(over)),
               mix(GetBValue(under), GetBValue(over)));
}

}  // namespace

void DrawIcon(HDC to, Icon icon, int x, int y, COLORREF colour) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, kFineSize, -kFineSize, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    HBITMAP fine = CreateDIBSection(to, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!fine) return;
    HDC canvas = CreateCompatibleDC(to);
    HGDIOBJ before = SelectObject(canvas, fine);
    for (const Shape& shape : kIcons[static_cast<int>(icon)].shapes)
        if (shape.kind != Shape::none) DrawShape(canvas, shape);
    GdiFlush();

    const auto* points = static_cast<const DWORD*>(bits);
    for (int row = 0; row < kIconSize; ++row) {
        for (int column = 0; column < kIconSize; ++column) {
            int share = 0;
            for (int i = 0; i < kFine * kFine; ++i)
                share += points[(row * kFine + i / kFine) * kFineSize + column * kFine + i % kFine] & 1;
            if (share)
                SetPixelV(to, x + column, y + row, Mixed(GetPixel(to, x + column, y + row), colour, share));
        }
    }
    SelectObject(canvas, before);
    DeleteDC(canvas);
    DeleteObject(fine);
}

}  // namespace handheld
