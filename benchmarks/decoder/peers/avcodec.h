// libavcodec's mjpeg, which reduces by powers of two itself, and libswscale for colour and three quarters.
#pragma once
#include "benchmarks/decoder/contender.h"

std::unique_ptr<CContender> avcodecDecoder();
