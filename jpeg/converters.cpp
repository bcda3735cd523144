#include "jpeg/converters.h"

#include <cstring>

#include "jpeg/row_converters.h"

namespace jpeg {

namespace {

constexpr uint32_t kThreeQuarterStep = 3072;

template <class Pixel, uint32_t kShift>
struct RowsOf {
    static constexpr RowConverter kByScaling[kScalingCount] = {
        exactRow<Pixel, kShift>, threeQuarterRow<Pixel, kShift>, generalRow<Pixel, kShift>};
};

// By sampling kind (4:2:0, 4:2:2, 4:4:4) and format (RGB565, 24 bit). 4:2:0 and 4:2:2 differ in their rows
// only.
constexpr const RowConverter* kRowConverters[3][2] = {
    {RowsOf<Rgb565, 1>::kByScaling, RowsOf<Bgr24, 1>::kByScaling},
    {RowsOf<Rgb565, 1>::kByScaling, RowsOf<Bgr24, 1>::kByScaling},
    {RowsOf<Rgb565, 0>::kByScaling, RowsOf<Bgr24, 0>::kByScaling},
};

// Source rows per chroma row, as a shift.
uint32_t chromaRowShift(const DecoderContext& context) {
    return context.samplingKind == 0 ? 1 : 0;
}

// Half of what the picture leaves free of the target; the other half follows it, with the odd row or column.
uint32_t leadingMargin(uint32_t target, uint32_t source, uint32_t step) {
    return (target - ((source * step + 4095) >> 12)) / 2;
}

// Steps, margins and limit. One step serves both axes, so that the picture keeps its shape.
void setUpSteps(DecoderContext& context) {
    context.stepX = context.targetWidth * kUnit / context.scaledWidth;
    context.stepY = context.targetHeight * kUnit / context.scaledHeight;
    context.step = context.stepX < context.stepY ? context.stepX : context.stepY;
    context.padRows = 0;
    context.padColumns = 0;
    if (context.stepX < context.stepY) {
        context.padRows = leadingMargin(context.targetHeight, context.scaledHeight, context.step);
    } else if (context.stepX > context.stepY) {
        context.padColumns = leadingMargin(context.targetWidth, context.scaledWidth, context.step);
    }
    // Half a step below a unit puts the sampling points into the middle. A picture that grows repeats its
    // rows and columns from the first on instead, so that the last ones are not cut short.
    const int32_t step = static_cast<int32_t>(context.step);
    context.limit = kUnit - (step > kUnit ? step : step / 2);
    context.accumY = kUnit;
}

Scaling chooseScaling(const DecoderContext& context) {
    if (context.scaledWidth == context.targetWidth && context.scaledHeight == context.targetHeight) {
        return kScalingExact;
    }
    const bool threeQuarters = context.stepX == kThreeQuarterStep && context.stepY == kThreeQuarterStep;
    return threeQuarters && context.scaleDiv != 8 ? kScalingThreeQuarter : kScalingGeneral;
}

// How often the next row of samples appears in the picture.
uint32_t timesDue(DecoderContext& context) {
    const uint32_t row = context.sourceRow++;
    if (context.rowScaling == kScalingExact) return 1;
    if (context.rowScaling == kScalingThreeQuarter) return (row & 3) != 3;
    uint32_t times = 0;
    for (; context.accumY > context.limit; context.accumY -= kUnit) ++times;
    context.accumY += static_cast<int32_t>(context.step);
    return times;
}

// Delivers one row: margin, pixels, margin. Rows past the picture, as of a second scan, are dropped.
void deliverRow(DecoderContext& context, const SourceRow* row) {
    DecoderCursors& cursors = context.cursors;
    if (cursors.outputBytes == context.targetBytes) return;
    uint8_t* out = cursors.outputCursor;
    uint8_t* const end = out + context.targetRowBytes;
    if (row != nullptr) {
        const uint32_t margin = context.padColumns * context.targetPixelBytes;
        std::memset(out, 0, margin);
        out = context.convertRow(context, *row, out + margin);
    }
    std::memset(out, 0, static_cast<size_t>(end - out));
    cursors.outputCursor = end;
    cursors.outputBytes += context.targetRowBytes;
}

void startRows(DecoderContext& context) {
    context.sourceRow = 0;
    for (uint32_t row = 0; row < context.padRows; ++row) deliverRow(context, nullptr);
}

}  // namespace

uint32_t beginPicture(DecoderContext& context) {
    setUpSteps(context);
    const Scaling scaling = chooseScaling(context);
    if (scaling != kScalingExact && (context.mode == 4 || context.mode == 11)) return kDecodeUnsupported;
    context.rowScaling = scaling;
    context.convertRow = kRowConverters[context.samplingKind][context.mode < 7 ? 0 : 1][scaling];
    startRows(context);
    return kDecodeOk;
}

void beginLumaPicture(DecoderContext& context) {
    setUpSteps(context);
    context.rowScaling = kScalingGeneral;
    context.convertRow = generalRow<Luma8, 0>;
    startRows(context);
}

void convertRows(DecoderContext& context, uint32_t count) {
    const uint32_t chromaShift = chromaRowShift(context);
    for (uint32_t y = 0; y < count; ++y) {
        const uint32_t chroma = (y >> chromaShift) * context.chromaWidth;
        const SourceRow row = {context.yPlane + y * context.scaledWidth, context.cbPlane + chroma,
                               context.crPlane + chroma};
        for (uint32_t times = timesDue(context); times != 0; --times) deliverRow(context, &row);
    }
}

void finishPicture(DecoderContext& context) {
    while (context.cursors.outputBytes < context.targetBytes) deliverRow(context, nullptr);
}

}  // namespace jpeg
