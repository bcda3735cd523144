#include "jpeg/scan_engine.h"

#include "jpeg/converters.h"
#include "jpeg/portable_engine.h"
#include "jpeg/scalar/engine.h"
#ifdef ZEL_X86_64_ENGINES
#include "jpeg/x86/engines.h"
#endif

namespace jpeg {

namespace {

bool always() {
    return true;
}

constexpr ScanEngine kEngines[] = {
    {"portable", always, decodeStripsPortably},
    {"scalar", always, decodeStripsScalar},
#ifdef ZEL_X86_64_ENGINES
    {"sse4.1", supportsSse, decodeStripsSse},
    {"avx2", supportsAvx2, decodeStripsAvx2},
#endif
};

}  // namespace

ScanEngineList scanEngines() {
    return {kEngines, sizeof kEngines / sizeof kEngines[0]};
}

const ScanEngine& fastestScanEngine() {
    const ScanEngine* fastest = kEngines;
    for (const ScanEngine& engine : kEngines) {
        if (engine.supported()) fastest = &engine;
    }
    return *fastest;
}

void deliverMcuRow(DecoderContext& context, uint32_t row) {
    convertRows(context, context.mcuRowHeight);
    if (row + 1 == context.mcuRows) finishPicture(context);
}

}  // namespace jpeg
