// One fuzzed decode: the first byte chooses among the target's modes, the rest is the stream.
#pragma once
#include <cstddef>
#include <cstdint>

#include "support/decode_run.h"

// Keeps one context over all inputs, as the program does, and delivers into a buffer of exactly the picture's
// size. Codes outside the table and pictures beyond the target abort.
inline void fuzzDecode(const uint8_t* data, size_t size, const int32_t* modes, size_t modeCount) {
    static TestContext context;
    if (size == 0) return;
    const int32_t mode = modes[data[0] % modeCount];
    const Decoded decoded = runDecode(*context, mode, Bytes(data + 1, data + size));
    const bool known = decoded.code <= 4 || (decoded.code >= 6 && decoded.code <= 11) || decoded.code == 13 ||
                       decoded.code == 18;
    if (!known || decoded.picture.size() > targetPicture(mode).totalBytes) __builtin_trap();
}
