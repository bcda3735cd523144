#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace handheld {

enum class ReadResult { ok, missing, tooLarge };

// Reads a whole file of at most `most` bytes, below 4 GiB.  A file that cannot be read counts as missing.
ReadResult ReadWholeFile(const std::wstring& path, size_t most, std::vector<uint8_t>& bytes);

}  // namespace handheld
