// Virtual keys of the handheld's buttons and what they do.  Portable.
#pragma once
#include <cstdint>

#include "resources/resource.h"

inline constexpr uint32_t kActionKey = 134;
inline constexpr uint32_t kFirstHotKey = 193;
inline constexpr uint32_t kLastHotKey = 196;

struct HardwareKey {
    uint32_t key;
    uint32_t command;  // of the on-screen button that does the same
};

inline constexpr HardwareKey kHardwareKeys[] = {
    {193, IDC_MENU},
    {194, IDC_PLAY},
    {195, IDC_ZOOM_OUT},
    {196, IDC_ZOOM_IN},
};
