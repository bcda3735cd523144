#include "jpeg/scan_blocks.h"

#include <cstring>

#include "jpeg/huffman.h"

namespace jpeg {

uint32_t TransformedBlock::operator()(BitReader& reader, ComponentWalk& component, uint8_t* out) {
    std::memset(m_block, 0, sizeof m_block);
    if (const uint32_t code = decodeDc(reader, *component.dcTable, component.predictor)) return code;
    m_block[0] = component.predictor;
    const auto store = [this](uint32_t place, int32_t value) { m_block[place] = value; };
    if (const uint32_t code = decodeAc(reader, *component.acTable, store)) return code;
    m_transform(out, m_block, component.quant, component.stride);
    return kDecodeOk;
}

uint32_t decodeMeanBlock(BitReader& reader, ComponentWalk& component, uint8_t* out) {
    if (const uint32_t code = decodeDc(reader, *component.dcTable, component.predictor)) return code;
    const auto forget = [](uint32_t, int32_t) {};
    if (const uint32_t code = decodeAc(reader, *component.acTable, forget)) return code;
    *out = blockMean(component.predictor, component.quant[0]);
    return kDecodeOk;
}

}  // namespace jpeg
