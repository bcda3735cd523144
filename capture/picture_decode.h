// One JPEG stream into the picture buffer.  Portable.
#pragma once
#include <cstdint>

#include "capture/decoded_image.h"
#include "jpeg/decoder.h"

// `mode` is the decoder's; the result is its code, 0 on success.
uint32_t DecodePicture(DecoderContext& decoder, const uint8_t* jpeg, uint32_t bytes, int32_t mode, DecodedImage& image);
