// What the image's imports are bound to.
#pragma once
#include <cstdint>

// A function of this program that stands for one of the handheld's.
struct Double {
    const char* library;
    const char* name;
    const void* function;
};
struct Doubles {
    const Double* first;
    uint32_t count;
};

// All doubles; see doubles/all_doubles.cpp.
Doubles AllDoubles();

// The address to bind. A name without a double is bound to code that ends the test with a sentence naming it.
uint32_t DoubleOf(const char* library, const char* name);
uint32_t DoubleOfOrdinal(const char* library, uint32_t ordinal);
