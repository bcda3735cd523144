#include "capture/picture_decode.h"

uint32_t DecodePicture(DecoderContext& decoder, const uint8_t* jpeg, uint32_t bytes, int32_t mode,
                       DecodedImage& image) {
    decoder.cursors.inputCursor = jpeg;
    decoder.cursors.inputRemaining = bytes;
    decoder.cursors.outputCursor = image.pixels;
    image.mode = mode;
    return decode(mode, decoder, 0);
}
