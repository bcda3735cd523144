// What becomes of a block in the scalar engine, by reduction. Each kind offers
//   kSide                                   samples along the block's side
//   prepare(context, walk)                  once for the scan; false: a scan that only the portable engine takes
//   decode(bits, component, predictor, out) one block; false: not ordinary, and nothing has changed but the
//                                           arguments and the samples
#pragma once
#include "jpeg/mcu_loop.h"
#include "jpeg/scalar_block.h"

namespace jpeg {

class FullBlocks {
  public:
    static constexpr uint32_t kSide = 8;
    bool prepare(const DecoderContext& context, const ScanWalk& walk);
    bool decode(ScalarBits& bits, uint32_t component, int32_t& predictor, uint8_t* out);

  private:
    ScalarTables m_tables[kMaxScanComponents];
    const BlockSteps* m_steps[kMaxScanComponents];
    uint32_t m_strides[kMaxScanComponents];
    uint32_t m_keptRows[kMaxScanComponents];
    BlockSteps m_madeSteps[kMaxScanComponents];
    ScalarBlock m_block;
};

}  // namespace jpeg
