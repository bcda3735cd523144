// Whether two decoders did the same work.
#pragma once
#include "benchmarks/decoder/work.h"

// Mean difference of two pictures' channels, in levels of 0..255.
double meanDifference(const uint8_t* one, const uint8_t* other, const Task& task);
