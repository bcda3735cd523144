// Which bitmaps are overlays.  Portable.
#pragma once
#include <cstdint>

#include "resources/resource.h"

// Bitmaps numbered one after the other by a value: `base` + `first` .. `base` + `last`.
struct OverlayFamily {
    uint32_t base;
    int32_t first, last;

    constexpr uint32_t Id(int32_t value) const { return base + static_cast<uint32_t>(value); }
    constexpr bool Has(int32_t value) const { return first <= value && value <= last; }
    constexpr uint32_t Size() const { return static_cast<uint32_t>(last - first + 1); }
};

inline constexpr OverlayFamily kMarks = {IDB_CENTRE_MARK, 0, IDB_MODE_VIDEO - IDB_CENTRE_MARK};
inline constexpr OverlayFamily kWhiteBalanceIcons = {IDB_WHITE_BALANCE, 1,
                                                     3};         // by setting; automatic and off have none
inline constexpr OverlayFamily kColorIcons = {IDB_COLOR, 1, 2};  // by setting; full colour has none
inline constexpr OverlayFamily kCountdownDigits = {IDB_COUNTDOWN, 0, 10};
inline constexpr OverlayFamily kSelfTimerMark = {IDB_SELF_TIMER_IDLE, 0, 0};
inline constexpr OverlayFamily kRecordingIdleMark = {IDB_RECORDING_IDLE, 0, 0};
inline constexpr OverlayFamily kRecordingPhases = {IDB_RECORDING, 0, 2};
inline constexpr OverlayFamily kZoomAndCard = {IDB_ZOOM, 0, IDB_MEMORY_CARD - IDB_ZOOM};

// All of them.
inline constexpr OverlayFamily kOverlayFamilies[] = {kMarks,           kWhiteBalanceIcons, kColorIcons,
                                                     kCountdownDigits, kSelfTimerMark,     kRecordingIdleMark,
                                                     kRecordingPhases, kZoomAndCard};

constexpr uint32_t OverlayCount() {
    uint32_t count = 0;
    for (const OverlayFamily& family : kOverlayFamilies) count += family.Size();
    return count;
}
