// The stand-in handheld's settings: environment variables, as the desktop's programs read them.
#pragma once
#include <cstdint>
#include <string>

namespace handheld {

// Value of a variable; empty when it is not set.
std::wstring TextSetting(const wchar_t* name);

// Value of a variable that holds a whole decimal number from `lowest` to `highest`; the fallback when it is
// not set or is anything else.
uint32_t NumberSetting(const wchar_t* name, uint32_t fallback, uint32_t lowest, uint32_t highest);

// Value of a variable that holds a path, ready for the desktop's file calls; empty when it is not set.
std::wstring PathSetting(const wchar_t* name);

// A path that a Linux user types ("/home/...") as the desktop's path; any other path unchanged.
std::wstring FromUnixPath(const std::wstring& path);

}  // namespace handheld
