// libjpeg as an independent judge of what the card's encoder writes.
#pragma once
#include <cstdint>
#include <vector>

#include "handheld/sio/picture/picture.h"

// Decodes a JPEG stream; an empty picture when libjpeg reports an error or a warning.
sio::Picture decodeReference(const std::vector<uint8_t>& stream);

// Decibels over all channels of two pictures of one size.
double psnr(const sio::Picture& a, const sio::Picture& b);
