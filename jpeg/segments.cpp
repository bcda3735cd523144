#include "jpeg/segments.h"

#include "jpeg/bit_reader.h"
#include "jpeg/zigzag.h"

namespace jpeg {

namespace {

constexpr int32_t kTableBytes = 65;  // header byte and 64 values

uint32_t readQuantTable(DecoderContext& context, BitReader& reader, uint32_t header) {
    const uint32_t number = header & 15;
    if (number > 3) return kDecodeBadQuantTable;
    for (uint8_t place : kZigzag) {
        if (!reader.byte(context.quantTables[number][place])) return kDecodeInputEnded;
    }
    context.quantTablesRead |= static_cast<uint8_t>(1u << number);
    return kDecodeOk;
}

}  // namespace

uint32_t parseQuantTables(DecoderContext& context) {
    BitReader reader(context);
    uint32_t length = 0;
    uint32_t header = 0;
    if (!reader.word(length) || !reader.byte(header)) return kDecodeInputEnded;
    // Only the first header byte of a segment has its precision looked at: a 16-bit table further on is read
    // as 64 bytes. Seen only with files that mix precisions.  (QuantTables.OnlyTheFirstPrecisionIsChecked)
    if (header > 15) return kDecodeBadQuantTable;
    for (int32_t left = static_cast<int32_t>(length) - 2;;) {
        const uint32_t code = readQuantTable(context, reader, header);
        if (code != kDecodeOk) return code;
        left -= kTableBytes;
        if (left < 1) return kDecodeOk;
        if (!reader.byte(header)) return kDecodeInputEnded;
    }
}

uint32_t parseRestartInterval(DecoderContext& context) {
    BitReader reader(context);
    uint32_t length = 0;
    uint32_t interval = 0;
    if (!reader.word(length)) return kDecodeInputEnded;
    if (length != 4) return kDecodeBadRestartSegment;
    if (!reader.word(interval)) return kDecodeInputEnded;
    context.restartInterval = static_cast<uint16_t>(interval);
    return kDecodeOk;
}

// The segment is counted in bytes as they stand in the stream, unlike those that are parsed. The reservoir is
// empty here: a marker code is never 0xFF, so nothing was read behind it.
uint32_t skipSegment(DecoderContext& context) {
    BitReader reader(context);
    uint32_t high = 0;
    uint32_t low = 0;
    if (!reader.rawByte(high) || !reader.rawByte(low)) return kDecodeInputEnded;
    const uint32_t length = high << 8 | low;
    // A length below 2 would not even hold itself: nothing is skipped then.
    return length < 2 || reader.skipRaw(length - 2) ? kDecodeOk : kDecodeInputEnded;
}

}  // namespace jpeg
