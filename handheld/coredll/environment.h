// The stand-in handheld's settings, read from environment variables.
#pragma once
#include <string>

namespace handheld {

// Value of a variable; empty when it is not set.
std::wstring Variable(const wchar_t* name);

// Value of a variable as a whole decimal number; the fallback when it is not set or is anything else.
unsigned long NumberVariable(const wchar_t* name, unsigned long fallback);

// A path typed by a Linux user ("/home/...") as the desktop's path; any other path unchanged.
std::wstring FromUnixPath(const std::wstring& path);

}  // namespace handheld
