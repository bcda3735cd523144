// A scan as the scalar engine sees it: its components, and the blocks of an MCU in their order.
#pragma once
#include "jpeg/converters.h"
#include "jpeg/mcu_loop.h"
#include "jpeg/scalar/blocks.h"

namespace jpeg {

inline constexpr uint32_t kMaxMcuBlocks = 6;  // 4:2:0

inline ScalarTables scalarTables(const DecoderContext& context, const ComponentWalk& component) {
    const uint32_t dc = static_cast<uint32_t>(component.dcTable - context.huffman);
    const uint32_t ac = static_cast<uint32_t>(component.acTable - context.huffman);
    return {&kCodeTables[dc], &kCodeTables[ac], &kSkipTables[ac - kAcSlot], component.dcTable,
            component.acTable};
}

template <class Blocks>
class ScanPlan {
  public:
    using Plan = typename Blocks::Plan;
    struct McuBlock {
        Plan* plan;
        uint8_t* out;
        uint32_t advance;  // from one MCU to the next
    };

    // False: a scan that only the portable engine takes.
    bool make(const DecoderContext& context, const ScanWalk& walk);

    // Takes predictors and places from the walk, whose MCU has been sought.
    void begin(const ScanWalk& walk);
    // Gives back the predictors.
    void end(ScanWalk& walk) const;

    McuBlock* blocks() { return m_blocks; }
    McuBlock* blocksEnd() { return m_blocksEnd; }
    Plan* plans() { return m_plans; }

  private:
    Plan m_plans[kMaxScanComponents];
    McuBlock m_blocks[kMaxMcuBlocks];
    McuBlock* m_blocksEnd;
    typename Blocks::Steps m_steps[kMaxScanComponents];
};

template <class Blocks>
bool ScanPlan<Blocks>::make(const DecoderContext& context, const ScanWalk& walk) {
    m_blocksEnd = m_blocks;
    for (uint32_t index = 0; index < kMaxScanComponents; ++index) {
        const ComponentWalk& component = walk.components[index];
        Plan& plan = m_plans[index];
        plan.tables = scalarTables(context, component);
        plan.stride = component.stride;
        // Of a row that is dropped nothing is needed, unless it is chroma that serves another row, too.
        const bool ownRows = component.down == context.vMax;
        plan.keptRows = context.rowScaling == kScalingThreeQuarter && ownRows ? 3 : 4;
        // Components with the same quantisation table share the steps, and the cache that these take.
        uint32_t first = 0;
        while (walk.components[first].quant != component.quant) ++first;
        plan.steps = &m_steps[first];
        if (first == index && !Blocks::makeSteps(m_steps[index], component.quant)) return false;
        for (uint32_t block = 0; block < component.across * component.down; ++block) {
            *m_blocksEnd++ = {&plan, nullptr, component.across * Blocks::kSide};
        }
    }
    return true;
}

template <class Blocks>
void ScanPlan<Blocks>::begin(const ScanWalk& walk) {
    McuBlock* block = m_blocks;
    for (uint32_t index = 0; index < kMaxScanComponents; ++index) {
        const ComponentWalk& component = walk.components[index];
        m_plans[index].predictor = component.predictor;
        for (uint32_t v = 0; v < component.down; ++v) {
            for (uint32_t h = 0; h < component.across; ++h) {
                (block++)->out = component.next + (v * component.stride + h) * Blocks::kSide;
            }
        }
    }
}

template <class Blocks>
void ScanPlan<Blocks>::end(ScanWalk& walk) const {
    for (uint32_t index = 0; index < kMaxScanComponents; ++index) {
        walk.components[index].predictor = m_plans[index].predictor;
    }
}

}  // namespace jpeg
