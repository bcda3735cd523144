#include "liveview/background.h"

#include <cstring>

#include "framework/program_module.h"
#include "liveview/overlay_plan.h"
#include "resources/resource.h"

namespace {

constexpr int kRowBytes = kCanvasWidth * 3;
static_assert(kRowBytes % 4 == 0);

// Resources hold bitmaps bottom row first; the canvas has its top row first.
bool TurnOver(const uint8_t* resource, uint8_t* pixels) {
    BITMAPINFOHEADER header;
    if (resource == nullptr) return false;
    std::memcpy(&header, resource, sizeof(header));
    if (header.biWidth != kCanvasWidth || header.biHeight != kCanvasHeight || header.biBitCount != 24 ||
        header.biCompression != BI_RGB)
        return false;
    const uint8_t* const rows = resource + header.biSize;
    for (int y = 0; y < kCanvasHeight; ++y)
        std::memcpy(pixels + y * kRowBytes, rows + (kCanvasHeight - 1 - y) * kRowBytes, kRowBytes);
    return true;
}

}  // namespace

const uint8_t* BackgroundPixels() {
    static uint8_t pixels[kRowBytes * kCanvasHeight];
    static const bool loaded = TurnOver(static_cast<const uint8_t*>(ResourceBytes(IDB_BACKGROUND, RT_BITMAP)), pixels);
    return loaded ? pixels : nullptr;
}
