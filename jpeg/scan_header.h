#pragma once
#include "jpeg/decoder.h"

namespace jpeg {

inline constexpr uint32_t kMaxScanComponents = 3;

// Huffman tables of the scan's components, in the frame's order.
struct ScanTables {
    const HuffmanTable* dc[kMaxScanComponents];
    const HuffmanTable* ac[kMaxScanComponents];
};

// Reads the scan header, which must list exactly the frame's components. Returns a DecodeCode.
uint32_t parseScanHeader(DecoderContext& context, ScanTables& tables);

}  // namespace jpeg
