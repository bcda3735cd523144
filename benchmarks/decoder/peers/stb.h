// stb_image: full size only, R G B, which is brought into the order and the rows of the others.
#pragma once
#include "benchmarks/decoder/contender.h"

std::unique_ptr<CContender> stbDecoder();
