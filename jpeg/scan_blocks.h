// What becomes of a block in the portable scan decoders: its samples, or its mean alone.
#pragma once
#include "jpeg/bit_reader.h"
#include "jpeg/inverse_dct.h"
#include "jpeg/mcu_loop.h"

namespace jpeg {

// Every coefficient of a block, through an inverse DCT.
class TransformedBlock {
  public:
    explicit TransformedBlock(InverseDct transform) : m_transform(transform) {}
    uint32_t operator()(BitReader& reader, ComponentWalk& component, uint8_t* out);

  private:
    InverseDct m_transform;
    int32_t m_block[64];
};

// Only the mean of a block; the rest is read and forgotten.
uint32_t decodeMeanBlock(BitReader& reader, ComponentWalk& component, uint8_t* out);

}  // namespace jpeg
