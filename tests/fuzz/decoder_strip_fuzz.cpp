// A whole stream, by the modes that go strip by strip. The first byte chooses the mode; the small pictures
// come more often, being quick.
#include "fuzz/decoder_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static constexpr int32_t kModes[] = {6, 13, 5, 12, 6, 13, 5, 12, 6, 13, 5, 12,
                                         6, 13, 4, 11, 6, 13, 3, 10, 2, 9,  1, 8};
    if (size != 0) fuzzDecode(kModes[data[0] % 24], data + 1, size - 1);
    return 0;
}
