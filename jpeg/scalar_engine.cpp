#include "jpeg/scalar_engine.h"

#include "jpeg/portable_engine.h"
#include "jpeg/scalar_blocks.h"
#include "jpeg/scalar_rows.h"

namespace jpeg {

namespace {

// MCUs from `place` that may be decoded here: all but the one before the next restart point, and but the
// scan's last one.
uint32_t ordinaryMcus(const DecoderContext& context, const ScanPlace& place) {
    const uint32_t done = place.row * context.mcusPerRow + place.column;
    const uint32_t left = context.mcuRows * context.mcusPerRow - done - 1;
    if (context.restartInterval == 0) return left;
    const uint32_t untilRestart = context.restartInterval - place.sinceRestart - 1;
    return untilRestart < left ? untilRestart : left;
}

// The MCU at `place`; false: not ordinary, nothing has changed but samples.
template <class Blocks>
bool decodeMcu(ScalarBits& reader, ScanWalk& walk, Blocks& blocks) {
    ScalarBits bits = reader;
    int32_t predictors[kMaxScanComponents];
    for (uint32_t index = 0; index < walk.count; ++index) {
        const ComponentWalk& component = walk.components[index];
        predictors[index] = component.predictor;
        for (uint32_t v = 0; v < component.down; ++v) {
            uint8_t* out = component.next + v * component.stride * Blocks::kSide;
            for (uint32_t h = 0; h < component.across; ++h, out += Blocks::kSide) {
                if (!blocks.decode(bits, index, predictors[index], out)) return false;
            }
        }
    }
    reader = bits;
    for (uint32_t index = 0; index < walk.count; ++index) {
        ComponentWalk& component = walk.components[index];
        component.predictor = predictors[index];
        component.next += component.across * Blocks::kSide;
    }
    return true;
}

// MCUs from `place` on, until one is not ordinary.
template <class Blocks>
void decodeOrdinary(DecoderContext& context, ScanWalk& walk, ScanPlace& place, Blocks& blocks) {
    ScalarBits bits(context);
    seekMcu(walk, place, Blocks::kSide);
    for (uint32_t left = ordinaryMcus(context, place); left != 0; --left) {
        if (!decodeMcu(bits, walk, blocks)) break;
        ++place.sinceRestart;
        if (++place.column < context.mcusPerRow) continue;
        deliverMcuRow(context, place.row);
        place.column = 0;
        ++place.row;
        seekMcu(walk, place, Blocks::kSide);
    }
    bits.putBack(context);
}

// By turns: what is ordinary here, then one MCU by the portable engine.
template <class Blocks>
uint32_t decodeScanOf(DecoderContext& context, ScanWalk& walk) {
    Blocks blocks;
    ScanPlace place;
    if (!blocks.prepare(context, walk)) return continueStripsPortably(context, walk, place, kAllMcus);
    while (place.row < context.mcuRows) {
        decodeOrdinary(context, walk, place, blocks);
        const uint32_t code = continueStripsPortably(context, walk, place, 1);
        if (code != kDecodeOk) return code;
    }
    return kDecodeOk;
}

}  // namespace

uint32_t decodeStripsScalar(DecoderContext& context, ScanWalk& walk) {
    context.convertRow = scalarRowConverter(context);
    switch (context.scaleDiv) {
        case 1:
            return decodeScanOf<FullBlocks>(context, walk);
        case 2:
            return decodeScanOf<HalfBlocks>(context, walk);
        case 4:
            return decodeScanOf<QuarterBlocks>(context, walk);
        default:
            return decodeScanOf<MeanBlocks>(context, walk);
    }
}

}  // namespace jpeg
