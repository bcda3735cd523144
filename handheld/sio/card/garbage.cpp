#include "handheld/sio/card/garbage.h"

namespace sio {

std::vector<uint8_t> garbageScan() {
    // Sixteen one-bits, stuffed: no Huffman code consists of ones only.
    std::vector<uint8_t> scan = {0xFF, 0x00, 0xFF, 0x00};
    uint32_t state = 1;
    while (scan.size() < 4096) {
        state = state * 1664525u + 1013904223u;
        scan.push_back(static_cast<uint8_t>((state >> 24) % 0xFF));  // never FF, so never a marker
    }
    scan.insert(scan.end(), {0xFF, 0xD9});
    return scan;
}

}  // namespace sio
