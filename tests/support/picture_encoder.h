// A small baseline encoder for tests, in integers only: the same bytes on every machine.
#pragma once
#include <array>
#include <cstdint>

#include "support/jpeg_stream.h"

// Samples of one colour picture, each plane width x height.
struct TestPicture {
    uint32_t width, height;
    std::array<Bytes, 3> planes;  // Y, Cb, Cr
};

// Gradients, edges, saturated fields and fine texture, the same for the same arguments.
TestPicture makePicture(uint32_t width, uint32_t height, uint32_t seed);

struct EncodeOptions {
    Sampling sampling = Sampling::k444;
    uint32_t coarseness = 2;  // quantisation step of the lowest frequencies; higher ones grow with it
    uint16_t restartInterval = 0;
};

// A complete stream. Sizes that are no multiple of the MCU are padded by repeating the last row and column.
Bytes encodePicture(const TestPicture& picture, const EncodeOptions& options);
