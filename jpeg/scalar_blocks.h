// What becomes of a block in the scalar engine, by reduction. Each kind offers
//   kSide                                   samples along the block's side
//   prepare(context, walk)                  once for the scan; false: a scan that only the portable engine takes
//   decode(bits, component, predictor, out) one block; false: not ordinary, and nothing has changed but the
//                                           arguments and the samples
#pragma once
#include "jpeg/inverse_dct.h"
#include "jpeg/mcu_loop.h"
#include "jpeg/scalar_block.h"
#include "jpeg/scalar_dct4.h"
#include "jpeg/scalar_dct8.h"
#include "jpeg/scalar_reduced.h"

namespace jpeg {

// Reduction 1 and 2, by a transform.
class TransformedBlocks {
  public:
    bool prepare(const DecoderContext& context, const ScanWalk& walk);

  protected:
    bool decodeBlock(ScalarBits& bits, uint32_t index, int32_t& predictor, uint32_t maxMagnitude) {
        const bool ordinary = decodeScalarBlock(bits, m_tables[index], *m_steps[index], predictor, m_block);
        if (ordinary && m_block.magnitude <= maxMagnitude) return true;
        m_block = {};
        return false;
    }

    ScalarTables m_tables[kMaxScanComponents];
    const BlockSteps* m_steps[kMaxScanComponents];
    uint32_t m_strides[kMaxScanComponents];
    uint32_t m_keptRows[kMaxScanComponents];
    BlockSteps m_madeSteps[kMaxScanComponents];
    ScalarBlock m_block;
};

class FullBlocks : public TransformedBlocks {
  public:
    static constexpr uint32_t kSide = 8;
    bool decode(ScalarBits& bits, uint32_t index, int32_t& predictor, uint8_t* out) {
        if (!decodeBlock(bits, index, predictor, kDct8MaxMagnitude)) return false;
        scalarDct8(m_block, out, m_strides[index], m_keptRows[index]);
        return true;
    }
};

class HalfBlocks : public TransformedBlocks {
  public:
    static constexpr uint32_t kSide = 4;
    bool decode(ScalarBits& bits, uint32_t index, int32_t& predictor, uint8_t* out) {
        if (!decodeBlock(bits, index, predictor, kDct4MaxMagnitude)) return false;
        scalarDct4(m_block, out, m_strides[index]);
        return true;
    }
};

// Reduction 4, by four sums.
class QuarterBlocks {
  public:
    static constexpr uint32_t kSide = 2;
    bool prepare(const DecoderContext& context, const ScanWalk& walk);
    bool decode(ScalarBits& bits, uint32_t index, int32_t& predictor, uint8_t* out) {
        uint32_t sums[4];
        if (!decodeSums(bits, m_tables[index], *m_steps[index], predictor, sums)) return false;
        storeSums(out, m_strides[index], sums);
        return true;
    }

  private:
    ScalarTables m_tables[kMaxScanComponents];
    const SumSteps* m_steps[kMaxScanComponents];
    uint32_t m_strides[kMaxScanComponents];
    SumSteps m_madeSteps[kMaxScanComponents];
};

// Reduction 8, by the mean alone.
class MeanBlocks {
  public:
    static constexpr uint32_t kSide = 1;
    bool prepare(const DecoderContext& context, const ScanWalk& walk);
    bool decode(ScalarBits& bits, uint32_t index, int32_t& predictor, uint8_t* out) {
        if (!decodeMean(bits, m_tables[index], predictor)) return false;
        *out = blockMean(predictor, m_quants[index]);
        return true;
    }

  private:
    ScalarTables m_tables[kMaxScanComponents];
    uint32_t m_quants[kMaxScanComponents];
};

}  // namespace jpeg
