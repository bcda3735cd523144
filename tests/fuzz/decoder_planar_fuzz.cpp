#include "fuzz/decoder_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static constexpr int32_t kModes[] = {7, 14};
    fuzzDecode(data, size, kModes, sizeof kModes / sizeof kModes[0]);
    return 0;
}
