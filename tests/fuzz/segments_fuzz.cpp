// The segment parsers, each by itself: the first byte chooses the parser and the mode, the rest is what
// stands behind the marker. What a parser accepts must be safe to decode with.
#include <algorithm>
#include <cstdlib>
#include <memory>

#include "jpeg/bit_reader.h"
#include "jpeg/frame_header.h"
#include "jpeg/scan_header.h"
#include "jpeg/segments.h"
#include "support/decode_run.h"
#include "support/engine_set.h"

namespace {

void demand(bool truth) {
    if (!truth) std::abort();
}

void setTarget(DecoderContext& context, int32_t mode) {
    const TargetPicture target = targetPicture(mode);
    context.mode = static_cast<uint16_t>(mode);
    context.targetWidth = target.width;
    context.targetHeight = target.height;
}

// Everything that indexes an array or moves a pointer later on.
void checkFrame(const DecoderContext& context, bool planar) {
    const uint32_t first = context.firstComponent;
    demand(context.componentCount == 1 || context.componentCount == 3);
    demand(first >= 1 && first + context.componentCount <= kComponentIds);
    demand(context.mcuRowBytes <= context.mcuRowCapacity);
    demand(context.scaledWidth != 0 && context.scaledHeight != 0);
    for (uint32_t id = first; id < first + context.componentCount; ++id) {
        const uint32_t rows =
            planar ? context.vSamp[id] * context.scaledHeight / context.vMax : 8u * context.vSamp[id];
        const uint8_t* const end = context.planeStart[id] + size_t{context.planeWidth[id]} * rows;
        demand(end <= context.mcuRowBuffer + context.mcuRowBytes);
        demand(context.quantSelector[id] < 4);
    }
}

void checkScan(const DecoderContext& context, const jpeg::ScanTables& tables) {
    for (uint32_t index = 0; index < context.componentCount; ++index) {
        for (const HuffmanTable* table : {tables.dc[index], tables.ac[index]}) {
            demand(table >= context.huffman && table < context.huffman + 4);
        }
    }
}

uint32_t parse(DecoderContext& context, uint32_t which) {
    switch (which) {
        case 0:
            return jpeg::parseQuantTables(context);
        case 1:
            return jpeg::parseRestartInterval(context);
        case 2:
            return jpeg::skipSegment(context);
        case 3: {
            // Only a frame that was accepted is followed by a scan.
            context.componentCount = 3;
            context.firstComponent = 1;
            jpeg::ScanTables tables{};
            const uint32_t code = jpeg::parseScanHeader(context, tables);
            if (code == kDecodeOk) checkScan(context, tables);
            return code;
        }
        default: {
            const bool planar = which == 7;
            const uint32_t code = jpeg::parseFrameHeader(context, planar);
            if (code == kDecodeOk) checkFrame(context, planar);
            return code;
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static TestContext context;
    if (size < 2) return 0;
    const auto input = std::make_unique<uint8_t[]>(size - 1);
    std::copy(data + 1, data + size, input.get());
    setTarget(*context, 1 + (data[0] >> 3) % 14);
    context->cursors.inputCursor = input.get();
    context->cursors.inputRemaining = static_cast<uint32_t>(size - 1);
    context->cursors.chunkCursor = context->inputChunk;
    context->cursors.chunkEnd = context->inputChunk + jpeg::fillChunk(*context);
    context->bitCount = 0;
    demand(EngineSet::isKnownCode(parse(*context, data[0] & 7)));
    return 0;
}
