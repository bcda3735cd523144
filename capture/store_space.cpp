#include "capture/store_space.h"

#include <cmath>

namespace {

constexpr uint32_t kPictureReserve = 2097152;  // bytes never given to pictures
constexpr uint32_t kVideoReserve = 0x400001;   // at or below: no movie

}  // namespace

uint32_t PictureEstimate(const CameraSettings& settings, const ScreenState& screen) {
    static constexpr uint32_t kUnzoomed[] = {80, 75, 50, 16};
    if (screen.zoom != 0) {
        if (screen.zoomedSizeSelector == 2) return 45;
        return screen.zoomedSizeSelector == 3 ? 16 : 0;
    }
    const auto resolution = static_cast<uint32_t>(settings.resolution);
    return resolution < 4 ? kUnzoomed[resolution] : 0;
}

uint32_t PicturesIn(uint32_t freeBytes, const CameraSettings& settings, const ScreenState& screen) {
    if (freeBytes <= kPictureReserve) return 0;
    // A size outside the table counts as large as all the free room, so nothing fits.
    const uint32_t listed = PictureEstimate(settings, screen);
    const double kilobytes = listed != 0 ? listed : freeBytes;
    const double pictures = (freeBytes - kPictureReserve) / (kilobytes * 1024 * std::ldexp(1.0, settings.imageQuality));
    constexpr double kMost = 4294967295.0;
    return pictures < kMost ? static_cast<uint32_t>(pictures) : UINT32_MAX;
}

uint32_t PicturesLeft(const CameraSettings& settings, const ScreenState& screen) {
    uint32_t freeBytes;
    return FreeStoreBytes(freeBytes) ? PicturesIn(freeBytes, settings, screen) : 0;
}

// The products wrap at 32 bits: with more than about 200 MiB free the seconds start again from small numbers.
// Only an oversized store shows it.  (StoreSpace.VideoProductsWrap)
uint32_t VideoSecondsIn(uint32_t freeBytes, int32_t aviResolution) {
    if (freeBytes <= kVideoReserve) return 0;
    return aviResolution == 1 ? (freeBytes * 20 - 0x5000000u) / 563200 : (freeBytes * 18 - 0x4800000u) / 844800;
}

uint32_t VideoSecondsLeft(int32_t aviResolution) {
    uint32_t freeBytes;
    return FreeStoreBytes(freeBytes) ? VideoSecondsIn(freeBytes, aviResolution) : 0;
}
