// The corpus as a benchmark reads it.
#pragma once
#include <string>
#include <vector>

#include "benchmarks/decoder/corpus/corpus.h"

// The streams of a set that are in the folder; throws std::runtime_error when there is none.
std::vector<corpus::Stream> loadSet(const std::string& folder, const char* set);
