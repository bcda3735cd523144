#include "jpeg/decoder.h"

#include <cstring>

#include "jpeg/bit_reader.h"
#include "jpeg/frame_header.h"
#include "jpeg/scan.h"
#include "jpeg/segments.h"

namespace {

// Marker codes, the byte after 0xFF.
constexpr uint32_t kStartOfFrame = 0xC0;  // baseline
constexpr uint32_t kHuffmanTables = 0xC4;
constexpr uint32_t kStartOfImage = 0xD8;
constexpr uint32_t kEndOfImage = 0xD9;
constexpr uint32_t kStartOfScan = 0xDA;
constexpr uint32_t kQuantTables = 0xDB;
constexpr uint32_t kRestartInterval = 0xDD;
constexpr uint32_t kFirstApplication = 0xE0;
constexpr uint32_t kLastApplication = 0xEF;
constexpr uint32_t kComment = 0xFE;

constexpr uint16_t kStatsTuning[4] = {128, 384, 115, 384};

void setTarget(DecoderContext& context, int32_t mode, const TargetPicture& target) {
    context.mode = static_cast<uint16_t>(mode);
    context.targetWidth = target.width;
    context.targetHeight = target.height;
    context.targetPixelBytes = target.bytesPerPixel;
    context.targetRowBytes = target.rowBytes;
    context.targetBytes = target.totalBytes;
    context.cursors.outputBytes = 0;
}

// The reader starts with the first byte alone: it is not looked at for stuffing.
void startReading(DecoderContext& context, uint32_t held) {
    context.cursors.chunkCursor = context.inputChunk + 1;
    context.cursors.chunkEnd = context.inputChunk + held;
    context.bitBuffer = context.inputChunk[0];
    context.bitCount = 8;
    context.restartInterval = 0;
    context.quantTablesRead = 0;
    context.scaleDiv = 0;
}

// Finds 0xFF, unless it has been taken already, and takes the code behind it. Neither fill bytes before a
// marker nor stuffed bytes are told apart: what follows 0xFF counts as a marker code.
bool nextMarker(DecoderContext& context, bool prefixTaken, uint32_t& marker) {
    jpeg::BitReader reader(context);
    if (!prefixTaken) {
        reader.alignToByte();
        uint32_t value = 0;
        do {
            if (!reader.byte(value)) return false;
        } while (value != 0xFF);
    }
    return reader.byte(marker);
}

uint32_t handleSegment(DecoderContext& context, uint32_t marker, bool planar) {
    switch (marker) {
        case kStartOfImage:
            return kDecodeOk;
        case kStartOfFrame:
            return jpeg::parseFrameHeader(context, planar);
        case kQuantTables:
            return jpeg::parseQuantTables(context);
        case kRestartInterval:
            return jpeg::parseRestartInterval(context);
        case kStartOfScan:
            return jpeg::decodeScan(context, planar);
        case kHuffmanTables:
        case kComment:
            return jpeg::skipSegment(context);
        default:
            // Other frames than baseline, restart markers outside a scan, anything unknown.
            if (marker < kFirstApplication || marker > kLastApplication) return kDecodeInputEnded;
            return jpeg::skipSegment(context);
    }
}

}  // namespace

uint32_t decode(int32_t mode, DecoderContext& context, uint32_t statsEnabled) {
    if (statsEnabled != 0) std::memcpy(context.statsTuning, kStatsTuning, sizeof kStatsTuning);
    const TargetPicture target = targetPicture(mode);
    setTarget(context, mode, target);
    const uint32_t held = jpeg::fillChunk(context);
    if (held == 0) return kDecodeInputEnded;
    if (target.width == 0) return kDecodeUnsupported;
    startReading(context, held);

    bool prefixTaken = false;
    for (;;) {
        uint32_t marker = 0;
        if (!nextMarker(context, prefixTaken, marker)) return kDecodeInputEnded;
        if (marker == kEndOfImage) break;
        const uint32_t code = handleSegment(context, marker, target.planar);
        prefixTaken = code == kDecodeScanEndedOnMarker;
        if (code != kDecodeOk && !prefixTaken) return code;
    }
    std::memset(context.frameStats, 0, sizeof context.frameStats);
    return kDecodeOk;
}
