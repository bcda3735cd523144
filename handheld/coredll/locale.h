// The handheld's one locale.
#pragma once
#include <windows.h>

namespace handheld {

// HANDHELD_LCID, or the desktop's default.
LCID DefaultLocale();

}  // namespace handheld
