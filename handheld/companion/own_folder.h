#pragma once
#include <string>

namespace handheld {

// Folder of the running program, where the other programs and the help pages lie; no trailing backslash.
std::wstring ProgramFolder();

}  // namespace handheld
