#include "device/watchdog.h"

namespace {

constexpr uint8_t kFailuresBeforeClosing = 2;
constexpr uint32_t kSettleTime = 25;  // milliseconds between reopening and the first control call

// The first open shares the device; this one asks for it alone.  Another program that holds the card
// therefore ends ours at the second tick.  (Watchdog.ReopensExclusively)
bool Reopen(CameraDevice& device) {
    CloseCamera(device);
    device.handle = OpenDriver(DriverShare::exclusive);
    return IsOpen(device);
}

}  // namespace

AfterTick TickWatchdog(CameraDevice& device, int32_t videoResolution, uint32_t zoom) {
    if (!device.streaming) return AfterTick::baseHandling;
    if (device.activity == 0) {
        if (!Reopen(device)) {
            if (++device.failures == kFailuresBeforeClosing) PostClose(device.eventWindow);
            return AfterTick::nothing;
        }
        device.failures = 0;
        SetEventWindow(device);
        PauseMilliseconds(kSettleTime);
        StopPreview(device);
        RestartPreview(device, videoResolution, zoom);
    }
    device.activity = 0;
    return AfterTick::baseHandling;
}
