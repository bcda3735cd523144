// The handheld's locale, for programs that do not go through its core library.
#pragma once
#include <windows.h>

namespace handheld {

// HANDHELD_LCID, or else the desktop user's.
LCID HandheldLocale();

}  // namespace handheld
