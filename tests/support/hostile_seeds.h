// The streams that hostile tests and fuzzers start from: small, and between them of every sampling,
// reduction, restart habit and header that a decoder meets.
#pragma once
#include <string>
#include <vector>

#include "support/jpeg_stream.h"

struct HostileSeed {
    std::string name;
    Bytes stream;
};

// A dozen, most with 1,000 bytes or more.
std::vector<HostileSeed> hostileSeeds();

// Pictures of a few blocks, quick to decode: a fuzzer learns by numbers.
std::vector<HostileSeed> tinySeeds();
