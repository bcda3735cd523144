#include "jpeg/scalar_blocks.h"

#include "jpeg/converters.h"
#include "jpeg/scalar_dct8.h"

namespace jpeg {

namespace {

ScalarTables scalarTables(const DecoderContext& context, const ComponentWalk& component) {
    return {&kCodeTables[component.dcTable - context.huffman], &kCodeTables[component.acTable - context.huffman],
            component.dcTable, component.acTable};
}

}  // namespace

bool FullBlocks::prepare(const DecoderContext& context, const ScanWalk& walk) {
    for (uint32_t index = 0; index < walk.count; ++index) {
        const ComponentWalk& component = walk.components[index];
        m_tables[index] = scalarTables(context, component);
        m_strides[index] = component.stride;
        // Of a row that is dropped nothing is needed, unless it is chroma that serves another row, too.
        const bool ownRows = component.down == context.vMax;
        m_keptRows[index] = context.rowScaling == kScalingThreeQuarter && ownRows ? 3 : 4;
        // Components with the same table share its steps, and the cache that these take.
        uint32_t shared = 0;
        while (walk.components[shared].quant != component.quant) ++shared;
        m_steps[index] = &m_madeSteps[shared];
        if (shared == index && !makeBlockSteps(m_madeSteps[shared], component.quant)) return false;
    }
    return true;
}

bool FullBlocks::decode(ScalarBits& bits, uint32_t component, int32_t& predictor, uint8_t* out) {
    if (!decodeScalarBlock(bits, m_tables[component], *m_steps[component], predictor, m_block) ||
        (m_block.columns != 0 && m_block.magnitude > kDct8MaxMagnitude)) {
        m_block = {};
        return false;
    }
    scalarDct8(m_block, out, m_strides[component], m_keptRows[component]);
    return true;
}

}  // namespace jpeg
