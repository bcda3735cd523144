#include "jpeg/decoder.h"

namespace {

struct Size {
    uint32_t width, height;
};
constexpr Size kSizes[] = {{320, 240}, {240, 180}, {160, 120}, {80, 60}, {40, 30}, {20, 15}, {240, 180}};
constexpr int32_t kModesPerFormat = 7;
constexpr int32_t kPlanarIndex = 6;

}  // namespace

uint32_t pictureRowBytes(uint32_t width, uint32_t bytesPerPixel) {
    const uint32_t bytes = width * bytesPerPixel;
    return bytesPerPixel == 3 ? (bytes + 3) & ~3u : bytes;
}

TargetPicture targetPicture(int32_t mode) {
    if (mode < 1 || mode > 2 * kModesPerFormat) return {};
    const int32_t index = (mode - 1) % kModesPerFormat;
    TargetPicture target{};
    target.width = kSizes[index].width;
    target.height = kSizes[index].height;
    target.planar = index == kPlanarIndex;
    target.bytesPerPixel = target.planar ? 1 : mode < kModesPerFormat ? 2 : 3;
    target.rowBytes = pictureRowBytes(target.width, target.bytesPerPixel);
    target.totalBytes = target.rowBytes * target.height;
    return target;
}
