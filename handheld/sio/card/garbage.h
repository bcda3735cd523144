// Scan data that no decoder accepts.
#pragma once
#include <cstdint>
#include <vector>

namespace sio {

// The same bytes every time: ended like a frame, but its first code word is one that the tables leave out.
std::vector<uint8_t> garbageScan();

}  // namespace sio
