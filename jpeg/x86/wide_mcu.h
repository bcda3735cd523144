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
            m_tables[index] = {component.dcTable, component.acTable, &kDcLooks[dc],
                               &kAcLooks[ac],     &kAcSkips[ac],     &kStartLooks[dc][ac]};
            if (!m_kinds[index].setUp(component.quant)) return false;
        }
        if constexpr (kReadsMcus) setUpSteps(walk);
        return true;
    }

    // MCUs that can be decoded at a time: the processor guesses the end of the reading wrong once for all of
    // them.
    static constexpr uint32_t kMost = Kind<Lanes>::kReadsMcus ? 4 : 1;

    // So many MCUs into the places that the walk points to, which move on. False: one of them is for the
    // portable engine; reader and walk are anything then.
    bool decodeMcus(uint32_t count, McuReader<Lanes>& reader, ScanWalk& walk) {
        if constexpr (kReadsMcus) {
            return readMcus(count, reader) && writeMcus(count, walk);
        } else {
            // A copy, whose fields need no memory.
            McuReader<Lanes> copy = reader;
            const bool good = forBlocks(walk, [&](uint32_t index, ComponentWalk& component, uint8_t* out) {
                return m_kinds[index].decode(copy, m_tables[index], component, out);
            });
            if (!good || !copy.has(kBitsBehind)) return false;
            reader = copy;
            moveOn(walk);
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
        for (uint32_t index = 0; index < walk.count; ++index) {
            const uint32_t count = walk.components[index].across * walk.components[index].down;
            m_kinds[index].setUpBlocks(m_blocks + m_blockCount, count, m_tables[index]);
            m_blockCount += count;
        }
        for (uint32_t n = m_blockCount; n <= m_blockCount * kMost; ++n)
            m_blocks[n] = m_blocks[n - m_blockCount];
    }

    bool readMcus(uint32_t count, McuReader<Lanes>& reader) {
        const uint32_t blocks = count * m_blockCount;
        for (uint32_t n = 0; n < blocks; ++n) Kind<Lanes>::clear(m_blocks[n]);
        McuReader<Lanes> copy = reader;
        m_blocks[blocks].place = kPlaceAtEnd;
        const bool good = copy.mcu(m_blocks) && copy.has(kBitsBehind);
        m_blocks[blocks].place = 0;
        if (good) reader = copy;
        return good;
    }

    bool writeMcus(uint32_t count, ScanWalk& walk) {
        Block* block = m_blocks;
        for (; count != 0; --count) {
            const bool good = forBlocks(walk, [&](uint32_t index, ComponentWalk& component, uint8_t* out) {
                return m_kinds[index].write(*block++, component, out);
            });
            if (!good) return false;
            moveOn(walk);
        }
        return true;
    }

    static void moveOn(ScanWalk& walk) {
        for (ComponentWalk& component : walk.components)
            component.next += component.across * Kind<Lanes>::kStep;
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
    Block m_blocks[kMaxBlocks * kMost + 1];
    uint32_t m_blockCount = 0;
};

}  // namespace jpeg
