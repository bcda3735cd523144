// What becomes of a block in the scalar engine, by reduction. Each kind offers
//   kSide                      samples along the block's side
//   makeSteps(steps, quant)    what its coefficients need; false: a table that only the portable engine takes
//   decode(bits, plan, out)    one block; false: not ordinary, and nothing has changed but `bits`, samples
//   and
//                              the predictor
#pragma once
#include "jpeg/inverse_dct.h"
#include "jpeg/scalar/block.h"
#include "jpeg/scalar/dct4.h"
#include "jpeg/scalar/dct8.h"
#include "jpeg/scalar/reduced.h"

namespace jpeg {

// Reduction 1 and 2, by a transform.
template <uint32_t kBlockSide>
class TransformedBlocks {
  public:
    static constexpr uint32_t kSide = kBlockSide;
    using Steps = BlockSteps;
    using Plan = ComponentPlan<Steps>;
    static bool makeSteps(Steps& steps, const uint32_t* quant) { return makeBlockSteps(steps, quant); }

    bool decode(ScalarBits& bits, Plan& plan, uint8_t* out) {
        constexpr uint32_t kMaxMagnitude = kSide == 8 ? kDct8MaxMagnitude : kDct4MaxMagnitude;
        const bool ordinary = decodeScalarBlock(m_block, bits, plan);
        if (!ordinary || m_block.magnitude > kMaxMagnitude) {
            m_block = {};
            return false;
        }
        if constexpr (kSide == 8) {
            scalarDct8(m_block, out, plan.stride, plan.keptRows);
        } else {
            scalarDct4(m_block, out, plan.stride);
        }
        return true;
    }

  private:
    ScalarBlock m_block = {};
};

// Reduction 4, by four sums.
class SummedBlocks {
  public:
    static constexpr uint32_t kSide = 2;
    using Steps = SumSteps;
    using Plan = ComponentPlan<Steps>;
    static bool makeSteps(Steps& steps, const uint32_t* quant) { return makeSumSteps(steps, quant); }

    bool decode(ScalarBits& bits, Plan& plan, uint8_t* out) { return decodeSums(m_sums, bits, plan, out); }

  private:
    BlockSums m_sums;
};

// Reduction 8, by the mean alone.
class MeanBlocks {
  public:
    static constexpr uint32_t kSide = 1;
    using Steps = MeanStep;
    using Plan = ComponentPlan<Steps>;
    static bool makeSteps(Steps& steps, const uint32_t* quant) {
        steps = {quant[0]};
        return true;
    }

    static bool decode(ScalarBits& bits, Plan& plan, uint8_t* out) {
        if (!decodeMean(bits, plan)) return false;
        *out = blockMean(plan.predictor, plan.steps->quant);
        return true;
    }
};

}  // namespace jpeg
