#include "jpeg/huffman.h"

#include <cstring>

#include "jpeg/scan_engine.h"
#include "jpeg/typical_tables.h"

namespace {

// Enters one code into the look-ahead: every 8-bit value that begins with it.
void addLookahead(HuffmanTable& table, uint32_t code, uint32_t length, uint8_t symbol) {
    const uint32_t first = code << (8 - length);
    const uint32_t count = 1u << (8 - length);
    std::memset(table.lookLength + first, static_cast<int>(length), count);
    std::memset(table.lookValue + first, symbol, count);
}

void buildTable(HuffmanTable& table, const jpeg::TypicalTable& typical) {
    table = {};
    std::memcpy(table.bits + 1, typical.bits, sizeof typical.bits);
    std::memcpy(table.huffVal, typical.values, sizeof typical.values);
    uint32_t code = 0;
    uint32_t index = 0;
    for (uint32_t length = 1; length <= 16; ++length, code <<= 1) {
        const uint32_t count = table.bits[length];
        table.maxCode[length] = -1;
        if (count == 0) continue;
        table.valOffset[length] = static_cast<int32_t>(index) - static_cast<int32_t>(code);
        table.maxLength = static_cast<uint16_t>(length);
        for (uint32_t n = 0; n < count; ++n, ++code, ++index) {
            if (length <= 8) addLookahead(table, code, length, table.huffVal[index]);
        }
        table.maxCode[length] = static_cast<int32_t>(code) - 1;
    }
}

}  // namespace

DecoderContext* buildHuffmanTables(DecoderContext& context) {
    for (uint32_t slot = 0; slot < 4; ++slot) buildTable(context.huffman[slot], jpeg::kTypicalTables[slot]);
    context.engine = &jpeg::fastestScanEngine();
    return &context;
}
