// Command lines as the handheld's programs hand them over: one argument, with or without quotation marks.
// Portable.
#pragma once
#include <string>

namespace handheld {

// The path that a command line consists of, blanks inside kept.
std::wstring PathArgument(const std::wstring& commandLine);

}  // namespace handheld
