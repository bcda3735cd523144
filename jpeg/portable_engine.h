// The engine that runs everywhere, and that every other one must equal.
//
// The others decode what is ordinary and hand over the rest: they put the reader down in the context at the
// start of an MCU and let this engine continue. That leaves the same codes, bytes and reader state as if it
// had decoded everything, provided that
//   - nothing of the MCU is left behind but samples that it will write again: the walk's predictors and the
//     place are those of the MCU's start, and no row has been delivered twice;
//   - the reader's cursor stands between two of its units (a byte, or 0xFF with its successor) and bitBuffer
//     holds the unread bits before it, whole bytes more or fewer than this engine would hold, but never one
//     that it would not have pulled before the end of the MCU's first symbol;
//   - the MCU before every restart point and the scan's last one are decoded here. The reader pulls a unit
//   only
//     when a symbol needs it, so its final state is that of the farthest need. The first symbol of an MCU
//     needs 8 bits from the MCU's start, no symbol before it reaches farther: what was pulled earlier, and by
//     whom, does not show.
#pragma once
#include "jpeg/scan_engine.h"

namespace jpeg {

struct ScanPlace;

uint32_t decodeStripsPortably(DecoderContext& context, ScanWalk& walk);

// Goes on at `place` for `mcus` MCUs (kAllMcus: the rest of the scan), with the rows and restart points that
// they complete. Returns as decodeStrips does; at kDecodeOk `place` stands behind the last of them.
uint32_t continueStripsPortably(DecoderContext& context, ScanWalk& walk, ScanPlace& place, uint32_t mcus);

}  // namespace jpeg
