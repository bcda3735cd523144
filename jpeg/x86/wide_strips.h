// The strips of a scan in the fast engines: what is ordinary here, the rest by the portable engine.
#pragma once
#include "jpeg/portable_engine.h"
#include "jpeg/x86/wide_blocks.h"
#include "jpeg/x86/wide_rows.h"

namespace jpeg {

template <class Lanes, template <class> class Kind>
class WideStrips {
  public:
    WideStrips(DecoderContext& context, ScanWalk& walk) : m_context(context), m_walk(walk) {}

    uint32_t decode() {
        for (uint32_t index = 0; index < m_walk.count; ++index) {
            const ComponentWalk& component = m_walk.components[index];
            const auto dc = component.dcTable - &m_context.huffman[kDcSlot];
            const auto ac = component.acTable - &m_context.huffman[kAcSlot];
            m_tables[index] = {component.dcTable, component.acTable, &kDcLooks[dc], &kAcLooks[ac],
                               &kAcSkips[ac]};
            if (!m_kinds[index].setUp(component.quant)) return decodeStripsPortably(m_context, m_walk);
        }
        while (m_place.row < m_context.mcuRows) {
            decodeOrdinary();
            const uint32_t code = continueStripsPortably(m_context, m_walk, m_place, 1);
            if (code != kDecodeOk) return code;
        }
        return kDecodeOk;
    }

  private:
    using Block = typename Kind<Lanes>::Block;
    static constexpr uint32_t kStep = Kind<Lanes>::kStep;
    static constexpr uint32_t kMaxBlocks = 6;  // of an MCU, at 4:2:0
    // So many bits must be left behind an MCU: the portable reader wants 8 for each symbol, however short.
    static constexpr int32_t kBitsBehind = 8;

    // MCUs up to the one that stands before a restart point or ends the scan.
    uint32_t ordinaryMcus() const {
        const uint32_t rows = m_context.mcuRows - m_place.row;
        const uint32_t left = rows * m_context.mcusPerRow - m_place.column;
        const uint32_t interval = m_context.restartInterval;
        const uint32_t inInterval = interval == 0 ? left : interval - m_place.sinceRestart;
        return (inInterval < left ? inInterval : left) - 1;
    }

    // Stops before an MCU with anything else in it.
    void decodeOrdinary() {
        BlockReader<Lanes> bits(m_context);
        seekMcu(m_walk, m_place, kStep);
        for (uint32_t left = ordinaryMcus(); left != 0; --left) {
            const BlockReader<Lanes> before = bits;
            const int32_t predictors[kMaxScanComponents] = {m_walk.components[0].predictor,
                                                            m_walk.components[1].predictor,
                                                            m_walk.components[2].predictor};
            if (!decodeMcu(bits)) {
                bits = before;
                for (uint32_t i = 0; i < kMaxScanComponents; ++i) {
                    m_walk.components[i].predictor = predictors[i];
                }
                break;
            }
            ++m_place.sinceRestart;
            if (++m_place.column < m_context.mcusPerRow) continue;
            deliverMcuRow(m_context, m_place.row);
            m_place.column = 0;
            ++m_place.row;
            seekMcu(m_walk, m_place, kStep);
        }
        bits.putDown(m_context);
    }

    // The reader is a copy, whose fields need no memory.
    bool decodeMcu(BlockReader<Lanes>& bits) {
        BlockReader<Lanes> reader = bits;
        Block* block = m_blocks;
        const bool read = forBlocks([&](uint32_t index, ComponentWalk& component, uint8_t* out) {
            return m_kinds[index].read(reader, m_tables[index], component, out, *block++);
        });
        if (!read || !reader.has(kBitsBehind)) return false;
        bits = reader;
        block = m_blocks;
        forBlocks([&](uint32_t index, const ComponentWalk& component, uint8_t* out) {
            m_kinds[index].write(*block++, component, out);
            return true;
        });
        for (ComponentWalk& component : m_walk.components) component.next += component.across * kStep;
        return true;
    }

    // The blocks of an MCU in the stream's order, as long as visit(index, component, out) likes it.
    template <class Visit>
    bool forBlocks(Visit visit) {
        for (uint32_t index = 0; index < m_walk.count; ++index) {
            ComponentWalk& component = m_walk.components[index];
            for (uint32_t v = 0; v < component.down; ++v) {
                for (uint32_t h = 0; h < component.across; ++h) {
                    uint8_t* const out = component.next + (v * component.stride + h) * kStep;
                    if (!visit(index, component, out)) return false;
                }
            }
        }
        return true;
    }

    DecoderContext& m_context;
    ScanWalk& m_walk;
    ScanPlace m_place;
    LookTables m_tables[kMaxScanComponents];
    Kind<Lanes> m_kinds[kMaxScanComponents];
    Block m_blocks[kMaxBlocks];
};

template <class Lanes>
using WholeWide = TransformedWide<Lanes, 8>;
template <class Lanes>
using HalvedWide = TransformedWide<Lanes, 4>;

template <class Lanes>
uint32_t decodeStripsWide(DecoderContext& context, ScanWalk& walk) {
    if (const RowConverter converter = wideRowConverter<Lanes>(context)) context.convertRow = converter;
    switch (context.scaleDiv) {
        case 1:
            return WideStrips<Lanes, WholeWide>(context, walk).decode();
        case 2:
            return WideStrips<Lanes, HalvedWide>(context, walk).decode();
        case 4:
            return WideStrips<Lanes, SummedWide>(context, walk).decode();
        default:
            return WideStrips<Lanes, MeanWide>(context, walk).decode();
    }
}

}  // namespace jpeg
