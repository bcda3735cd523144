// The engines for x86-64. Each is compiled for its instruction set in a file of its own.
#pragma once
#include "jpeg/scan_engine.h"

namespace jpeg {

bool supportsSse();
bool supportsAvx2();

uint32_t decodeStripsSse(DecoderContext& context, ScanWalk& walk);
uint32_t decodeStripsAvx2(DecoderContext& context, ScanWalk& walk);

}  // namespace jpeg
