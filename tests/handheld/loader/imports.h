// What the image's imports are bound to: this program's functions of the same names.
#pragma once
#include <cstdint>

// The address to bind. A name without a double is bound to code that ends the test with a sentence naming it.
uint32_t DoubleOf(const char* library, const char* name);
uint32_t DoubleOfOrdinal(const char* library, uint32_t ordinal);
