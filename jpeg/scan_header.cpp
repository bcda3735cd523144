#include "jpeg/scan_header.h"

#include "jpeg/bit_reader.h"
#include "jpeg/huffman.h"

namespace jpeg {

namespace {

uint32_t readSpectralSelection(BitReader& reader) {
    struct Expected {
        uint32_t value;
        uint32_t code;
    };
    constexpr Expected kExpected[] = {
        {0, kDecodeBadSpectralStart}, {63, kDecodeBadSpectralEnd}, {0, kDecodeBadApproximation}};
    for (const Expected& expected : kExpected) {
        uint32_t value = 0;
        if (!reader.byte(value)) return kDecodeInputEnded;
        if (value != expected.value) return expected.code;
    }
    return kDecodeOk;
}

}  // namespace

uint32_t parseScanHeader(DecoderContext& context, ScanTables& tables) {
    BitReader reader(context);
    uint32_t length = 0;
    uint32_t count = 0;
    if (!reader.word(length) || !reader.byte(count)) return kDecodeInputEnded;
    if (count != context.componentCount) return kDecodeUnsupported;
    for (uint32_t index = 0; index < count; ++index) {
        uint32_t id = 0;
        uint32_t selectors = 0;
        if (!reader.byte(id) || !reader.byte(selectors)) return kDecodeInputEnded;
        const uint32_t dc = selectors >> 4;
        const uint32_t ac = selectors & 15;
        if (id != context.firstComponent + index || dc > 1 || ac > 1) return kDecodeUnsupported;
        tables.dc[index] = &context.huffman[kDcSlot + dc];
        tables.ac[index] = &context.huffman[kAcSlot + ac];
    }
    return readSpectralSelection(reader);
}

}  // namespace jpeg
