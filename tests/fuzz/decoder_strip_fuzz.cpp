#include "fuzz/decoder_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static constexpr int32_t kModes[] = {1, 2, 3, 4, 5, 6, 8, 9, 10, 11, 12, 13};
    fuzzDecode(data, size, kModes, sizeof kModes / sizeof kModes[0]);
    return 0;
}
