// A fast engine, for a set of lanes.
#pragma once
#include "jpeg/x86/batch_strips.h"
#include "jpeg/x86/wide_rows.h"
#include "jpeg/x86/wide_strips.h"

namespace jpeg {

template <class Lanes>
uint32_t decodeStripsWide(DecoderContext& context, ScanWalk& walk) {
    if (const RowConverter converter = wideRowConverter<Lanes>(context)) context.convertRow = converter;
    switch (context.scaleDiv) {
        case 1:
            return BatchStrips<Lanes, 8>(context, walk).decode();
        case 2:
            return BatchStrips<Lanes, 4>(context, walk).decode();
        case 4:
            return WideStrips<Lanes, SummedWide>(context, walk).decode();
        default:
            return WideStrips<Lanes, MeanWide>(context, walk).decode();
    }
}

}  // namespace jpeg
