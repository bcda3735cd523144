// Segments between the markers, except the frame and scan headers. Each returns a DecodeCode.
#pragma once
#include "jpeg/decoder.h"

namespace jpeg {

uint32_t parseQuantTables(DecoderContext& context);      // after FF DB
uint32_t parseRestartInterval(DecoderContext& context);  // after FF DD
uint32_t skipSegment(DecoderContext& context);           // after FF C4, FF E0..EF, FF FE

}  // namespace jpeg
