// Which file a help page is.  Portable.
#pragma once
#include <string>
#include <vector>

#include "handheld/companion/language.h"

namespace help {

// The page that a command line names: "file:Camera Help.htm", the "file:" in any capitals or missing.
std::wstring PageArgument(const std::wstring& commandLine);

// File names of a page in the order of preference: its translation, "Camera Help.de.htm", then the page
// itself.
std::vector<std::wstring> PageNames(const std::wstring& page, handheld::Language language);

}  // namespace help
