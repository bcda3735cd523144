// Functions that the compiler inlined away in the image, each reached through one that it kept, so that it is
// still the image's code that answers. Where the image has the function itself, that one is called
// (link_loader.py prefers it).
#include <cstdlib>

#include "capture/still_rules.h"
#include "capture/store_space.h"
#include "fakes/store_fake.h"
#include "framework/profile.h"
#include "handheld/doubles/registry.h"
#include "handheld/loader/image.h"
#include "jpeg/decoder.h"
#include "jpeg/scan_engine.h"
#include "liveview/countdown.h"

#define INLINED __attribute__((weak))

INLINED uint32_t PicturesIn(uint32_t freeBytes, const CameraSettings& settings, const ScreenState& screen) {
    ResetStoreFake().freeBytes = freeBytes;
    return PicturesLeft(settings, screen);
}

INLINED uint32_t VideoSecondsIn(uint32_t freeBytes, int32_t aviResolution) {
    ResetStoreFake().freeBytes = freeBytes;
    return VideoSecondsLeft(aviResolution);
}

// The room holds a whole number of pictures of each size in the table.
INLINED uint32_t PictureEstimate(const CameraSettings& settings, const ScreenState& screen) {
    constexpr uint32_t kReserve = 2097152, kKilobytes = 3600;
    CameraSettings good = settings;
    good.imageQuality = 0;
    const uint32_t pictures = PicturesIn(kReserve + kKilobytes * 1024, good, screen);
    return pictures != 0 ? kKilobytes / pictures : 0;
}

INLINED uint8_t StillMode(int32_t resolution, const ScreenState& screen) {
    StillRequest request;
    FillStillRequest(request, {}, screen, resolution, L"", 0);
    return request.mode;
}

INLINED uint32_t CountdownDigit(uint32_t elapsed, uint32_t previous) {
    ScreenState screen;
    screen.countdownRunning = true;
    screen.countdownDigit = previous;
    AdvanceCountdown(screen, elapsed, 0);
    return screen.countdownDigit;
}

INLINED void releaseBuffers(DecoderContext& context) {
    std::free(context.mcuRowBuffer);
    context.mcuRowBuffer = nullptr;
    context.mcuRowCapacity = 0;
}

INLINED jpeg::ScanEngineList jpeg::scanEngines() {
    const ImageSymbol engines = FindInImage("_ZN4jpeg12_GLOBAL__N_1L8kEnginesE");
    return {reinterpret_cast<const ScanEngine*>(engines.address), engines.bytes / sizeof(ScanEngine)};
}

// Only prepares what the image reads.
INLINED bool WriteProfileText(const Profile&, const wchar_t* section, const wchar_t* name,
                              const wchar_t* text) {
    constexpr uint32_t kText = 1;
    const std::wstring value(text);
    const auto* const bytes = reinterpret_cast<const uint8_t*>(value.c_str());
    RegistryValues().push_back({L"Software\\Zel\\" + std::wstring(section),
                                name,
                                kText,
                                {bytes, bytes + (value.size() + 1) * sizeof(wchar_t)}});
    return true;
}
