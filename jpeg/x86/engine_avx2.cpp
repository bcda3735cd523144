#include "jpeg/x86/engines.h"
#include "jpeg/x86/lanes_avx2.h"
#include "jpeg/x86/wide_engine.h"

namespace jpeg {

uint32_t decodeStripsAvx2(DecoderContext& context, ScanWalk& walk) {
    return decodeStripsWide<Avx2Lanes>(context, walk);
}

}  // namespace jpeg
