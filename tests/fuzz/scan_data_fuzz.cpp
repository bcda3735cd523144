// Bare scan data behind a good header, as the card sends it: every byte goes into the entropy decoder. The
// first byte chooses header and mode.
#include <algorithm>
#include <vector>

#include "device/preview_headers.h"
#include "fuzz/decoder_fuzz.h"
#include "support/jpeg_stream.h"

namespace {

struct Header {
    Bytes bytes;
    std::vector<int32_t> modes;  // sizes that the picture meets exactly, by three quarters, reduced, enlarged
};

Bytes preview(int32_t number) {
    const PreviewHeader& header = *FindPreviewHeader(number);
    return Bytes(header.begin(), header.end());
}

Bytes still(uint32_t width, uint32_t height, Sampling sampling, uint16_t restartInterval) {
    JpegStream stream;
    stream.start().quantTable(0, 3).quantTable(1, 5);
    if (restartInterval != 0) stream.restartInterval(restartInterval);
    return stream.frame(width, height, sampling).scanHeader().bytes();
}

const std::vector<Header>& headers() {
    // Every sampling at every reduction, small; and, more rarely, what the camera itself shows.
    static const std::vector<Header> kHeaders = {
        {still(24, 16, Sampling::k444, 0), {13, 6, 13, 6}},  // as it is
        {still(32, 16, Sampling::k422, 0), {13, 6, 13, 6}},
        {still(32, 32, Sampling::k420, 0), {13, 6, 13, 6}},
        {still(48, 32, Sampling::k444, 3), {13, 6, 13, 6}},  // by 2
        {still(48, 32, Sampling::k422, 0), {13, 6, 13, 6}},
        {still(48, 32, Sampling::k420, 1), {13, 6, 13, 6}},
        {still(80, 64, Sampling::k444, 0), {13, 6, 12, 5}},  // by 4 and 2
        {still(80, 64, Sampling::k422, 2), {13, 6, 12, 5}},
        {still(80, 64, Sampling::k420, 0), {13, 6, 12, 5}},
        {still(160, 120, Sampling::k444, 0), {13, 6, 12, 5}},  // by 8 and 4
        {still(160, 128, Sampling::k422, 0), {13, 6, 12, 11}},
        {still(160, 128, Sampling::k420, 5), {13, 6, 12, 4}},
        {preview(1), {8, 9, 1, 2}},
        {preview(2), {8, 9, 1, 2}},
        {preview(3), {10, 3, 12, 5}},
    };
    return kHeaders;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const Header& header = headers()[data[0] % headers().size()];
    const int32_t mode = header.modes[data[0] / headers().size() % header.modes.size()];
    Bytes stream = header.bytes;
    stream.insert(stream.end(), data + 1, data + size);
    stream.insert(stream.end(), {0xFF, 0xD9});
    fuzzDecode(mode, stream.data(), stream.size());
    return 0;
}
