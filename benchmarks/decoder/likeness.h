// Whether two decoders did the same work.
#pragma once
#include <vector>

#include "benchmarks/decoder/work.h"

// Mean difference of two pictures' channels, in levels of 0..255.
double meanDifference(const std::vector<uint8_t>& one, const std::vector<uint8_t>& other, const Task& task);
