// Complete JPEG files for still pictures.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

#include "handheld/sio/encoder/scan_writer.h"

namespace sio {

// The Annex K example steps at a quality of 1..100, scaled as libjpeg scales them.
StepTables stepsForQuality(int quality);

// A baseline JFIF file: 4:2:2, standard Huffman tables, no restarts. `quality` 0..2 means libjpeg's 75, 85,
// 93 (others count as 0); where the file would be longer than `budget` bytes the steps are raised, down to a
// quality of 20 and no further.
std::vector<uint8_t> encodeStill(const Picture& picture, uint32_t quality, size_t budget);

}  // namespace sio
