#include "jpeg/scalar_blocks.h"

#include "jpeg/converters.h"

namespace jpeg {

namespace {

ScalarTables scalarTables(const DecoderContext& context, const ComponentWalk& component) {
    const uint32_t dc = static_cast<uint32_t>(component.dcTable - context.huffman);
    const uint32_t ac = static_cast<uint32_t>(component.acTable - context.huffman);
    return {&kCodeTables[dc], &kCodeTables[ac], &kSkipTables[ac - kAcSlot], component.dcTable,
            component.acTable};
}

// The first component with the same quantisation table: they share its steps, and the cache that these take.
uint32_t firstWithSameQuant(const ScanWalk& walk, uint32_t index) {
    uint32_t first = 0;
    while (walk.components[first].quant != walk.components[index].quant) ++first;
    return first;
}

}  // namespace

bool TransformedBlocks::prepare(const DecoderContext& context, const ScanWalk& walk) {
    m_block = {};
    for (uint32_t index = 0; index < walk.count; ++index) {
        const ComponentWalk& component = walk.components[index];
        m_tables[index] = scalarTables(context, component);
        m_strides[index] = component.stride;
        // Of a row that is dropped nothing is needed, unless it is chroma that serves another row, too.
        const bool ownRows = component.down == context.vMax;
        m_keptRows[index] = context.rowScaling == kScalingThreeQuarter && ownRows ? 3 : 4;
        const uint32_t first = firstWithSameQuant(walk, index);
        m_steps[index] = &m_madeSteps[first];
        if (first == index && !makeBlockSteps(m_madeSteps[first], component.quant)) return false;
    }
    return true;
}

bool QuarterBlocks::prepare(const DecoderContext& context, const ScanWalk& walk) {
    for (uint32_t index = 0; index < walk.count; ++index) {
        const ComponentWalk& component = walk.components[index];
        m_tables[index] = scalarTables(context, component);
        m_strides[index] = component.stride;
        const uint32_t first = firstWithSameQuant(walk, index);
        m_steps[index] = &m_madeSteps[first];
        if (first == index) makeSumSteps(m_madeSteps[first], component.quant);
    }
    return true;
}

bool MeanBlocks::prepare(const DecoderContext& context, const ScanWalk& walk) {
    for (uint32_t index = 0; index < walk.count; ++index) {
        m_tables[index] = scalarTables(context, walk.components[index]);
        m_quants[index] = walk.components[index].quant[0];
    }
    return true;
}

}  // namespace jpeg
