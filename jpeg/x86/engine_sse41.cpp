#include "jpeg/x86/engines.h"
#include "jpeg/x86/lanes_sse41.h"
#include "jpeg/x86/wide_engine.h"

namespace jpeg {

uint32_t decodeStripsSse(DecoderContext& context, ScanWalk& walk) {
    return decodeStripsWide<SseLanes>(context, walk);
}

}  // namespace jpeg
