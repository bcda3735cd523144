// From rows of Y, Cb and Cr samples to rows of pixels: the colour, the size and the black margins.
#pragma once
#include "jpeg/decoder.h"

namespace jpeg {

// What decides on a row of samples.
enum Scaling : uint32_t {
    kScalingExact,         // every row and column
    kScalingThreeQuarter,  // the first three of every four
    kScalingGeneral,       // nearest neighbour, by accumulators
    kScalingCount
};

// Chooses the converter for the frame and the mode, and delivers the black rows above the picture.
// Returns a DecodeCode: modes 4 and 11 take only a picture that has their size already.
uint32_t beginPicture(DecoderContext& context);

// The same for a picture of the luma plane alone, always by general scaling.
void beginLumaPicture(DecoderContext& context);

// Converts and delivers the next `count` rows of the planes, from their top.
void convertRows(DecoderContext& context, uint32_t count);

// Delivers black rows until the picture is complete.
void finishPicture(DecoderContext& context);

}  // namespace jpeg
