#include "handheld/sio/encoder/frame_steps.h"

#include <algorithm>

#include "device/preview_headers.h"

namespace sio {
namespace {

// Places of the two tables in a header, each behind a byte with its number.
constexpr size_t kLumaTable = 7, kChromaTable = 72;

StepTables readSteps(const PreviewHeader& header) {
    StepTables steps;
    std::copy_n(header.begin() + kLumaTable, steps.luma.size(), steps.luma.begin());
    std::copy_n(header.begin() + kChromaTable, steps.chroma.size(), steps.chroma.begin());
    return steps;
}

}  // namespace

const StepTables& frameSteps() {
    static const StepTables steps = readSteps(*FindPreviewHeader(1));
    return steps;
}

}  // namespace sio
