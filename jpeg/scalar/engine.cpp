#include "jpeg/scalar/engine.h"

#include "jpeg/portable_engine.h"
#include "jpeg/scalar/plans.h"
#include "jpeg/scalar/rows.h"

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

// The next MCU; false: not ordinary, nothing has changed but samples and their places.
template <class Blocks>
inline bool decodeMcu(ScalarBits& reader, ScanPlan<Blocks>& scan, Blocks& blocks) {
    ScalarBits bits = reader;
    auto* const plans = scan.plans();
    const int32_t first = plans[0].predictor;
    const int32_t second = plans[1].predictor;
    const int32_t third = plans[2].predictor;
    for (auto* block = scan.blocks(); block != scan.blocksEnd(); ++block) {
        uint8_t* const out = block->out;
        block->out = out + block->advance;
        if (blocks.decode(bits, *block->plan, out)) continue;
        plans[0].predictor = first;
        plans[1].predictor = second;
        plans[2].predictor = third;
        return false;
    }
    reader = bits;
    return true;
}

// MCUs from `place` on, until one is not ordinary.
template <class Blocks>
void decodeOrdinary(DecoderContext& context, ScanWalk& walk, ScanPlace& place, ScanPlan<Blocks>& scan,
                    Blocks& blocks) {
    ScalarBits bits(context);
    if (!bits.begin()) return;
    seekMcu(walk, place, Blocks::kSide);
    scan.begin(walk);
    for (uint32_t left = ordinaryMcus(context, place); left != 0; --left) {
        if (!decodeMcu(bits, scan, blocks)) break;
        ++place.sinceRestart;
        if (++place.column < context.mcusPerRow) continue;
        deliverMcuRow(context, place.row);
        place.column = 0;
        ++place.row;
        scan.end(walk);
        seekMcu(walk, place, Blocks::kSide);
        scan.begin(walk);
    }
    scan.end(walk);
    bits.putBack(context);
}

// By turns: what is ordinary here, then one MCU by the portable engine.
template <class Blocks>
uint32_t decodeScanOf(DecoderContext& context, ScanWalk& walk) {
    Blocks blocks;
    ScanPlan<Blocks> scan;
    ScanPlace place;
    if (!scan.make(context, walk)) return continueStripsPortably(context, walk, place, kAllMcus);
    while (place.row < context.mcuRows) {
        decodeOrdinary(context, walk, place, scan, blocks);
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
            return decodeScanOf<TransformedBlocks<8>>(context, walk);
        case 2:
            return decodeScanOf<TransformedBlocks<4>>(context, walk);
        case 4:
            return decodeScanOf<SummedBlocks>(context, walk);
        default:
            return decodeScanOf<MeanBlocks>(context, walk);
    }
}

}  // namespace jpeg
