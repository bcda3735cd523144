// One MCU in the fast engines.
#pragma once
#include "jpeg/x86/wide_blocks.h"

namespace jpeg {

template <class Lanes, template <class> class Kind>
class WideMcu {
  public:
    // False: the scan is not for us.
    bool setUp(const DecoderContext& context, const ScanWalk& walk) {
        for (uint32_t index = 0; index < walk.count; ++index) {
            const ComponentWalk& component = walk.components[index];
            const auto dc = component.dcTable - &context.huffman[kDcSlot];
            const auto ac = component.acTable - &context.huffman[kAcSlot];
            m_tables[index] = {component.dcTable, component.acTable, &kDcLooks[dc], &kAcLooks[ac],
                               &kAcSkips[ac]};
            if (!m_kinds[index].setUp(component.quant)) return false;
        }
        if constexpr (kReadsMcus) setUpSteps(walk);
        return true;
    }

    // Into the places that the walk points to. False: the portable engine has to decode this MCU; reader and
    // predictors are anything then.
    bool decodeMcu(McuReader<Lanes>& reader, ScanWalk& walk) {
        if constexpr (kReadsMcus) {
            return readMcu(reader) && writeMcu(walk);
        } else {
            // A copy, whose fields need no memory.
            McuReader<Lanes> copy = reader;
            const bool good = forBlocks(walk, [&](uint32_t index, ComponentWalk& component, uint8_t* out) {
                return m_kinds[index].decode(copy, m_tables[index], component, out);
            });
            if (!good || !copy.has(kBitsBehind)) return false;
            reader = copy;
            return true;
        }
    }

  private:
    static constexpr bool kReadsMcus = Kind<Lanes>::kReadsMcus;
    static constexpr uint32_t kMaxBlocks = 6;  // of an MCU, at 4:2:0
    // So many bits must be left behind an MCU: the portable reader wants 8 for each symbol, however short.
    static constexpr int32_t kBitsBehind = 8;

    struct NoBlock {};
    template <class Any, bool kHasBlock>
    struct BlockOf {
        using Type = NoBlock;
    };
    template <class Any>
    struct BlockOf<Any, true> {
        using Type = typename Any::Block;
    };
    using Block = typename BlockOf<Kind<Lanes>, kReadsMcus>::Type;

    void setUpSteps(const ScanWalk& walk) {
        ReadStep* step = m_steps;
        for (uint32_t index = 0; index < walk.count; ++index) {
            const uint32_t count = walk.components[index].across * walk.components[index].down;
            step = m_kinds[index].addSteps(step, m_blocks + m_blockCount, count, m_tables[index]);
            m_blockCount += count;
        }
        *step = *m_steps;
        step->place = kPlaceAtEnd;
    }

    bool readMcu(McuReader<Lanes>& reader) {
        for (uint32_t n = 0; n < m_blockCount; ++n) Kind<Lanes>::clear(m_blocks[n]);
        McuReader<Lanes> copy = reader;
        copy.refill();
        if (!copy.mcu(m_steps) || !copy.has(kBitsBehind)) return false;
        reader = copy;
        return true;
    }

    bool writeMcu(ScanWalk& walk) {
        Block* block = m_blocks;
        return forBlocks(walk, [&](uint32_t index, ComponentWalk& component, uint8_t* out) {
            return m_kinds[index].write(*block++, component, out);
        });
    }

    // The blocks of an MCU in the stream's order, as long as visit(index, component, out) likes it.
    template <class Visit>
    static bool forBlocks(ScanWalk& walk, Visit visit) {
        for (uint32_t index = 0; index < walk.count; ++index) {
            ComponentWalk& component = walk.components[index];
            for (uint32_t v = 0; v < component.down; ++v) {
                for (uint32_t h = 0; h < component.across; ++h) {
                    uint8_t* const out = component.next + (v * component.stride + h) * Kind<Lanes>::kStep;
                    if (!visit(index, component, out)) return false;
                }
            }
        }
        return true;
    }

    LookTables m_tables[kMaxScanComponents];
    Kind<Lanes> m_kinds[kMaxScanComponents];
    Block m_blocks[kMaxBlocks];
    uint32_t m_blockCount = 0;
    ReadStep m_steps[2 * kMaxBlocks + 1];
};

}  // namespace jpeg
