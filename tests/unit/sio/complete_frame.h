#pragma once
#include <cstdint>
#include <vector>

#include "handheld/sio/encoder/planes.h"

// A live-view frame as the program completes it (the fixed header in front), with the Annex K tables that
// libjpeg wants.
std::vector<uint8_t> completeFrame(const std::vector<uint8_t>& scan, int width, int height,
                                   sio::Sampling sampling);
