// libjpeg as an independent judge of what the card's encoder writes.
#pragma once
#include <cstdint>
#include <vector>

#include "handheld/sio/encoder/planes.h"
#include "handheld/sio/picture/picture.h"

// Decodes a JPEG stream; an empty picture when libjpeg reports an error or a warning.
sio::Picture decodeReference(const std::vector<uint8_t>& stream);

// A live-view frame as the program completes it (the fixed header in front), with the Annex K tables that
// libjpeg wants.
std::vector<uint8_t> completeFrame(const std::vector<uint8_t>& scan, int width, int height,
                                   sio::Sampling sampling);

// Decibels over all channels of two pictures of one size.
double psnr(const sio::Picture& a, const sio::Picture& b);
