#pragma once
#include <string>

namespace help {

// Bytes that are not UTF-8 become U+FFFD; a byte order mark is left out.  Portable.
std::wstring FromUtf8(const std::string& bytes);

// Adds one character, as two units where a wide character has 16 bits and it does not fit into one.
void AppendCharacter(std::wstring& text, unsigned long character);

}  // namespace help
