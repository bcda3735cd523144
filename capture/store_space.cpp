#include "capture/store_space.h"

#include <algorithm>

namespace {

constexpr uint32_t kPictureReserve = 2097152;  // bytes never given to pictures
constexpr uint32_t kVideoReserve = 0x400001;   // at or below: no movie

// Stops growing where any quotient of two such numbers is beyond all counting.
constexpr uint64_t Doubled(uint64_t bytes, int64_t times) {
    for (; times > 0 && bytes >> 62 == 0; --times) bytes *= 2;
    return bytes;
}

}  // namespace

uint32_t FreeBytes(StoreRoom& room) {
    if (!room.asked && !FreeStoreBytes(room.freeBytes)) room.freeBytes = 0;
    room.asked = true;
    return room.freeBytes;
}

uint32_t PictureEstimate(const CameraSettings& settings, const ScreenState& screen) {
    static constexpr uint32_t kUnzoomed[] = {80, 75, 50, 16};
    if (screen.zoom != 0) {
        if (screen.zoomedSizeSelector == 2) return 45;
        return screen.zoomedSizeSelector == 3 ? 16 : 0;
    }
    const auto resolution = static_cast<uint32_t>(settings.resolution);
    return resolution < 4 ? kUnzoomed[resolution] : 0;
}

// Whole numbers throughout: the processor has no floating point, and no quality or free room makes them wrap.
// Each step of quality doubles a picture's size; steps below 0 halve it.
uint32_t PicturesIn(uint32_t freeBytes, const CameraSettings& settings, const ScreenState& screen) {
    const uint32_t kilobytes = PictureEstimate(settings, screen);
    if (freeBytes <= kPictureReserve || kilobytes == 0) return 0;
    const uint64_t room = Doubled(freeBytes - kPictureReserve, -int64_t{settings.imageQuality});
    const uint64_t picture = Doubled(uint64_t{kilobytes} * 1024, settings.imageQuality);
    return static_cast<uint32_t>(std::min<uint64_t>(room / picture, UINT32_MAX));
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
