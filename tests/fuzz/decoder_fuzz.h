// One fuzzed decode, by every engine.
#pragma once
#include <cstddef>
#include <cstdint>

// Aborts on a code that callers do not know, on an engine that differs from the portable one in code, bytes
// or reader, and (through the sanitizers) on any byte read or written outside the buffers, which have exactly
// their sizes, or delivered without having been written.
void fuzzDecode(int32_t mode, const uint8_t* stream, size_t size);
