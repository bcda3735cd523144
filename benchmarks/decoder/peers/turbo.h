// libjpeg-turbo through the interface of libjpeg: accurate transform, merged upsampling, its own scaling.
#pragma once
#include "benchmarks/decoder/contender.h"

std::unique_ptr<CContender> turboDecoder();
