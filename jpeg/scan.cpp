#include "jpeg/scan.h"

#include "jpeg/converters.h"
#include "jpeg/scan_blocks.h"
#include "jpeg/scan_engine.h"

namespace jpeg {

namespace {

// In place and for every scan anew: a second scan at reduction 4 sees tables that were scaled before.
void prescaleTables(DecoderContext& context) {
    for (uint32_t number = 0; number < 4; ++number) {
        if ((context.quantTablesRead >> number & 1) != 0) prescaleQuantTable(context.quantTables[number]);
    }
}

uint32_t decodeStrips(DecoderContext& context, ScanWalk& walk) {
    if (const uint32_t code = beginPicture(context)) return code;
    if (context.scaleDiv == 4) prescaleTables(context);
    return context.engine->decodeStrips(context, walk);
}

// The whole image into planes, then the luma plane into the picture.
uint32_t decodePlanes(DecoderContext& context, ScanWalk& walk) {
    const auto finishRow = [](ScanWalk& rows, uint32_t) {
        for (ComponentWalk& component : rows.components) {
            component.rowStart += component.stride * component.down * 8;
        }
    };
    ScanPlace place;
    const uint32_t code =
        decodeMcus(context, walk, place, kAllMcus, 8, TransformedBlock(inverseDct8), finishRow);
    if (code != kDecodeOk && code != kDecodeScanEndedOnMarker) return code;
    beginLumaPicture(context);
    convertRows(context, context.scaledHeight);
    finishPicture(context);
    return code;
}

}  // namespace

uint32_t decodeScan(DecoderContext& context, bool planar) {
    if (context.scaleDiv == 0) return kDecodeNoFrame;
    ScanTables tables{};
    if (const uint32_t code = parseScanHeader(context, tables)) return code;
    ScanWalk walk = beginWalk(context, tables);
    return planar ? decodePlanes(context, walk) : decodeStrips(context, walk);
}

}  // namespace jpeg
