// A whole stream, by the modes that decode the image into planes. The first byte chooses the mode.
#include "fuzz/decoder_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static constexpr int32_t kModes[] = {7, 14};
    if (size != 0) fuzzDecode(kModes[data[0] % 2], data + 1, size - 1);
    return 0;
}
