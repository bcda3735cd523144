#include "jpeg/portable_engine.h"

#include "jpeg/mcu_loop.h"
#include "jpeg/scan_blocks.h"

namespace jpeg {

namespace {

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

}  // namespace

uint32_t continueStripsPortably(DecoderContext& context, ScanWalk& walk, ScanPlace& place, uint32_t mcus) {
    const auto finishRow = [&context](ScanWalk&, uint32_t row) { deliverMcuRow(context, row); };
    if (context.scaleDiv == 8) return decodeMcus(context, walk, place, mcus, 1, decodeMeanBlock, finishRow);
    const Reduction reduction = reductionOf(context);
    return decodeMcus(context, walk, place, mcus, reduction.blockStep, TransformedBlock(reduction.transform),
                      finishRow);
}

uint32_t decodeStripsPortably(DecoderContext& context, ScanWalk& walk) {
    ScanPlace place;
    return continueStripsPortably(context, walk, place, kAllMcus);
}

}  // namespace jpeg
