#include "jpeg/scan.h"

#include <cstring>

#include "jpeg/converters.h"
#include "jpeg/huffman.h"
#include "jpeg/inverse_dct.h"
#include "jpeg/mcu_loop.h"

namespace jpeg {

namespace {

// Every coefficient of a block, through an inverse DCT.
class TransformedBlock {
  public:
    explicit TransformedBlock(InverseDct transform) : m_transform(transform) {}

    uint32_t operator()(BitReader& reader, ComponentWalk& component, uint8_t* out) {
        std::memset(m_block, 0, sizeof m_block);
        if (const uint32_t code = decodeDc(reader, *component.dcTable, component.predictor)) return code;
        m_block[0] = component.predictor;
        const auto store = [this](uint32_t place, int32_t value) { m_block[place] = value; };
        if (const uint32_t code = decodeAc(reader, *component.acTable, store)) return code;
        m_transform(out, m_block, component.quant, component.stride);
        return kDecodeOk;
    }

  private:
    InverseDct m_transform;
    int32_t m_block[64];
};

// Only the mean of a block; the rest is read and forgotten.
uint32_t decodeMeanBlock(BitReader& reader, ComponentWalk& component, uint8_t* out) {
    if (const uint32_t code = decodeDc(reader, *component.dcTable, component.predictor)) return code;
    const auto forget = [](uint32_t, int32_t) {};
    if (const uint32_t code = decodeAc(reader, *component.acTable, forget)) return code;
    *out = blockMean(component.predictor, component.quant[0]);
    return kDecodeOk;
}

struct Reduction {
    InverseDct transform;
    uint32_t blockStep;  // samples of a block's side
};

Reduction reductionOf(const DecoderContext& context) {
    switch (context.scaleDiv) {
        case 1:
            return {inverseDct8, 8};
        case 2:
            return {inverseDct4, 4};
        default:
            return {inverseDct2, 2};
    }
}

// In place and for every scan anew: a second scan at reduction 4 sees tables that were scaled before.
void prescaleTables(DecoderContext& context) {
    for (uint32_t number = 0; number < 4; ++number) {
        if ((context.quantTablesRead >> number & 1) != 0) prescaleQuantTable(context.quantTables[number]);
    }
}

// Strip by strip: each MCU row is converted and delivered as soon as it is complete.
uint32_t decodeStrips(DecoderContext& context, ScanWalk& walk) {
    if (const uint32_t code = beginPicture(context)) return code;
    if (context.scaleDiv == 4) prescaleTables(context);
    const auto finishRow = [&context](ScanWalk&, uint32_t row) {
        convertRows(context, context.mcuRowHeight);
        if (row + 1 == context.mcuRows) finishPicture(context);
    };
    if (context.scaleDiv == 8) return decodeMcus(context, walk, 1, decodeMeanBlock, finishRow);
    const Reduction reduction = reductionOf(context);
    return decodeMcus(context, walk, reduction.blockStep, TransformedBlock(reduction.transform), finishRow);
}

// The whole image into planes, then the luma plane into the picture.
uint32_t decodePlanes(DecoderContext& context, ScanWalk& walk) {
    const auto finishRow = [](ScanWalk& rows, uint32_t) {
        for (ComponentWalk& component : rows.components) {
            component.rowStart += component.stride * component.down * 8;
        }
    };
    const uint32_t code = decodeMcus(context, walk, 8, TransformedBlock(inverseDct8), finishRow);
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
