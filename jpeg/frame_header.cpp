#include "jpeg/frame_header.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "jpeg/bit_reader.h"

namespace jpeg {

namespace {

// The whole image in planes, at most: all the memory that a handheld has. No still of the card comes near.
constexpr uint64_t kMaxPlanarBytes = 32u << 20;

struct SamplingLayout {
    int32_t samplingKind;
    uint8_t h, v;                   // of the luma component; both chroma components have 1 x 1
    uint32_t halfBytesPerPosition;  // buffer per luma sample of the reduced image, in halves
};
constexpr SamplingLayout kLayouts[] = {{2, 1, 1, 6}, {1, 2, 1, 4}, {0, 2, 2, 3}};
constexpr SamplingLayout kOneComponent = {4, 0, 0, 2};

const SamplingLayout* findLayout(const DecoderContext& context, bool planar) {
    const uint32_t first = context.firstComponent;
    if (context.componentCount == 1) return planar ? &kOneComponent : nullptr;
    if (context.componentCount != 3) return nullptr;
    for (uint32_t id = first + 1; id < first + 3; ++id) {
        if (context.hSamp[id] != 1 || context.vSamp[id] != 1) return nullptr;
    }
    for (const SamplingLayout& layout : kLayouts) {
        if (context.hSamp[first] == layout.h && context.vSamp[first] == layout.v) return &layout;
    }
    return nullptr;
}

// Ids, factors and selectors; they index arrays, so none may pass unchecked.
uint32_t readComponents(DecoderContext& context, BitReader& reader) {
    context.hMax = 0;
    context.vMax = 0;
    for (uint32_t index = 0; index < context.componentCount; ++index) {
        uint32_t id = 0;
        uint32_t sampling = 0;
        uint32_t selector = 0;
        if (!reader.byte(id) || !reader.byte(sampling) || !reader.byte(selector)) return kDecodeInputEnded;
        if (index == 0) context.firstComponent = static_cast<uint8_t>(id);
        const uint32_t h = sampling >> 4;
        const uint32_t v = sampling & 15;
        if (id < 1 || id >= kComponentIds || id != context.firstComponent + index) return kDecodeUnsupported;
        if (h == 0 || v == 0 || selector > 3) return kDecodeUnsupported;
        context.hSamp[id] = static_cast<uint8_t>(h);
        context.vSamp[id] = static_cast<uint8_t>(v);
        context.quantSelector[id] = static_cast<uint8_t>(selector);
        if (h > context.hMax) context.hMax = h;
        if (v > context.vMax) context.vMax = v;
    }
    return kDecodeOk;
}

uint32_t readFrame(DecoderContext& context) {
    BitReader reader(context);
    uint32_t length = 0;
    uint32_t precision = 0;
    if (!reader.word(length) || !reader.byte(precision)) return kDecodeInputEnded;
    if (precision != 8) {
        std::puts("This decoder doesn't support 12 bit or 16 bit data");
        return kDecodeBadPrecision;
    }
    uint32_t count = 0;
    if (!reader.word(context.imageHeight) || !reader.word(context.imageWidth) || !reader.byte(count)) {
        return kDecodeInputEnded;
    }
    if (context.imageWidth == 0 || context.imageHeight == 0) return kDecodeUnsupported;
    context.componentCount = static_cast<uint8_t>(count);
    return readComponents(context, reader);
}

// The largest power of two, at most 8, that leaves the picture no smaller than its target.
// The quotients have 8 bits: a picture 256 times the target or more is taken for a smaller one and comes out
// reduced less than it could be, slower but right.  (FrameHeader.QuotientsHaveEightBits)
int32_t chooseReduction(const DecoderContext& context) {
    const uint8_t across = static_cast<uint8_t>(context.imageWidth / context.targetWidth);
    const uint8_t down = static_cast<uint8_t>(context.imageHeight / context.targetHeight);
    const uint8_t least = across < down ? across : down;
    return least < 2 ? 1 : least < 4 ? 2 : least < 8 ? 4 : 8;
}

// A size that is no multiple of the MCU gets one MCU more than it needs, except in planar modes. Ordinary
// files of such sizes run out of data (3, 4 or 11); no camera size is one.
// (FrameHeader.OddSizesGetAnMcuTooMany)
uint32_t countMcus(uint32_t size, uint32_t mcuSize, bool planar) {
    const uint32_t count = (size + mcuSize - 1) / mcuSize;
    return !planar && size % mcuSize != 0 ? count + 1 : count;
}

void layOutPlanes(DecoderContext& context, bool planar) {
    const uint32_t first = context.firstComponent;
    uint8_t* start = context.mcuRowBuffer;
    for (uint32_t id = first; id < first + context.componentCount; ++id) {
        context.planeWidth[id] = context.hSamp[id] * context.scaledWidth / context.hMax;
        context.planeStart[id] = start;
        const uint32_t rows =
            planar ? context.vSamp[id] * context.scaledHeight / context.vMax : context.vSamp[id] * 8u;
        start += context.planeWidth[id] * rows;
    }
    // A one-component frame has no chroma; its converter reads none.
    const bool grey = context.componentCount == 1;
    context.chromaWidth = grey ? 0 : context.planeWidth[first + 1];
    context.yPlane = context.planeStart[first];
    context.cbPlane = context.planeStart[grey ? first : first + 1];
    context.crPlane = context.planeStart[grey ? first : first + 2];
}

bool reserve(DecoderContext& context, uint32_t bytes) {
    context.mcuRowBytes = bytes;
    if (bytes <= context.mcuRowCapacity) return true;
    releaseBuffers(context);
    context.mcuRowBuffer = static_cast<uint8_t*>(std::malloc(bytes));
    if (context.mcuRowBuffer == nullptr) return false;
    context.mcuRowCapacity = bytes;
    return true;
}

}  // namespace

uint32_t parseFrameHeader(DecoderContext& context, bool planar) {
    const uint32_t code = readFrame(context);
    if (code != kDecodeOk) return code;
    const SamplingLayout* layout = findLayout(context, planar);
    if (layout == nullptr) return kDecodeUnsupported;

    const int32_t scaleDiv = planar ? 1 : chooseReduction(context);
    const uint32_t reducedBlock = 8u / static_cast<uint32_t>(scaleDiv);
    context.samplingKind = layout->samplingKind;
    context.mcusPerRow = countMcus(context.imageWidth, 8 * context.hMax, planar);
    context.mcuRows = countMcus(context.imageHeight, 8 * context.vMax, planar);
    context.scaledWidth = context.mcusPerRow * context.hMax * reducedBlock;
    context.scaledHeight = context.mcuRows * context.vMax * reducedBlock;
    context.mcuRowHeight = static_cast<uint16_t>(context.vMax * reducedBlock);

    // A strip keeps room for an unreduced MCU row's height: the planes stand that far apart.
    const uint32_t rows = planar ? context.scaledHeight : 8 * context.vMax;
    const uint64_t bytes = uint64_t{context.scaledWidth} * rows * layout->halfBytesPerPosition / 2;
    if (bytes > kMaxPlanarBytes || !reserve(context, static_cast<uint32_t>(bytes))) return kDecodeNoMemory;
    // A scan may end on a marker before all of the image has come.
    if (planar) std::memset(context.mcuRowBuffer, 0, context.mcuRowBytes);
    layOutPlanes(context, planar);
    context.scaleDiv = scaleDiv;
    return kDecodeOk;
}

}  // namespace jpeg

void releaseBuffers(DecoderContext& context) {
    std::free(context.mcuRowBuffer);
    context.mcuRowBuffer = nullptr;
    context.mcuRowCapacity = 0;
}
