// The loop over the MCUs of a scan, shared by the three scan decoders. They differ in what becomes of a block
// and of a finished MCU row, and hand both in as functors.
#pragma once
#include "jpeg/bit_reader.h"
#include "jpeg/decoder.h"
#include "jpeg/scan_header.h"

namespace jpeg {

// One component on its way through the scan.
struct ComponentWalk {
    const HuffmanTable* dcTable;
    const HuffmanTable* acTable;
    const uint32_t* quant;
    uint32_t across, down;  // blocks of one MCU
    uint32_t stride;        // bytes from one row of samples to the next
    uint8_t* rowStart;      // where the MCU row's samples begin
    uint8_t* next;          // where the next MCU's begin
    int32_t predictor;      // DC value of the block before
};

struct ScanWalk {
    ComponentWalk components[kMaxScanComponents];
    uint32_t count;
};

inline ScanWalk beginWalk(const DecoderContext& context, const ScanTables& tables) {
    ScanWalk walk{};
    walk.count = context.componentCount;
    for (uint32_t index = 0; index < walk.count; ++index) {
        const uint32_t id = context.firstComponent + index;
        ComponentWalk& component = walk.components[index];
        component.dcTable = tables.dc[index];
        component.acTable = tables.ac[index];
        component.quant = context.quantTables[context.quantSelector[id]];
        component.across = context.hSamp[id];
        component.down = context.vSamp[id];
        component.stride = context.planeWidth[id];
        component.rowStart = context.planeStart[id];
    }
    return walk;
}

// At a restart point. Byte-aligned data that does not go on with 0xFF goes on being decoded, with the
// predictors as they are: no marker is demanded, and the numbers of those that come are not followed.
// (Restart.MissingMarkerKeepsPredictors, Restart.AnyNumberIsAccepted)
inline uint32_t passRestartPoint(BitReader& reader, ScanWalk& walk) {
    reader.alignToByte();
    if (!reader.need(8)) return kDecodeInputEnded;
    if (reader.peek(8) != 0xFF) return kDecodeOk;
    reader.drop(8);
    if (!reader.need(8)) return kDecodeInputEnded;
    if (reader.peek(8) >> 3 != 0xD0 >> 3) return kDecodeScanEndedOnMarker;
    reader.drop(8);
    for (ComponentWalk& component : walk.components) component.predictor = 0;
    return kDecodeOk;
}

// The MCU that comes next. Together with the walk's predictors and the context's reader it is all that a scan
// needs to go on, whoever decoded it so far.
struct ScanPlace {
    uint32_t row = 0;
    uint32_t column = 0;
    uint32_t sinceRestart = 0;  // MCUs since the last restart point
};

inline constexpr uint32_t kAllMcus = UINT32_MAX;

// Where the samples of the MCU at `place` go, in every component.
inline void seekMcu(ScanWalk& walk, const ScanPlace& place, uint32_t blockStep) {
    for (ComponentWalk& component : walk.components) {
        component.next = component.rowStart + place.column * component.across * blockStep;
    }
}

// Decodes `mcus` MCUs from `place`, or what is left of the scan, and leaves `place` behind the last of them.
// block(reader, component, out) decodes one block into the samples at `out`, `blockStep` to each side.
// finishRow(walk, row) runs when an MCU row is complete, before the restart point that may follow it.
template <class Block, class FinishRow>
uint32_t decodeMcus(DecoderContext& context, ScanWalk& walk, ScanPlace& place, uint32_t mcus,
                    uint32_t blockStep, Block&& block, FinishRow&& finishRow) {
    BitReader reader(context);
    seekMcu(walk, place, blockStep);
    for (; mcus != 0 && place.row < context.mcuRows; --mcus) {
        for (uint32_t index = 0; index < walk.count; ++index) {
            ComponentWalk& component = walk.components[index];
            for (uint32_t v = 0; v < component.down; ++v) {
                for (uint32_t h = 0; h < component.across; ++h) {
                    uint8_t* const out = component.next + (v * component.stride + h) * blockStep;
                    const uint32_t code = block(reader, component, out);
                    if (code != kDecodeOk) return code;
                }
            }
            component.next += component.across * blockStep;
        }
        if (++place.column == context.mcusPerRow) {
            finishRow(walk, place.row);
            place.column = 0;
            ++place.row;
            seekMcu(walk, place, blockStep);
        }
        if (context.restartInterval == 0 || ++place.sinceRestart < context.restartInterval) continue;
        place.sinceRestart = 0;
        const uint32_t code = passRestartPoint(reader, walk);
        if (code != kDecodeOk) return code;
    }
    return kDecodeOk;
}

}  // namespace jpeg
