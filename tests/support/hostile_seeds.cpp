#include "support/hostile_seeds.h"

#include "device/preview_headers.h"
#include "support/picture_encoder.h"
#include "support/scan_writer.h"

namespace {

struct Shape {
    const char* name;
    uint32_t width, height;
    Sampling sampling;
    uint32_t coarseness;
    uint16_t restartInterval;
};

// The 320 x 240 picture is there for the three-quarter sizes, which only that size reaches.
constexpr Shape kShapes[] = {
    {"444", 64, 48, Sampling::k444, 8, 0},           {"422", 96, 64, Sampling::k422, 8, 0},
    {"420", 80, 64, Sampling::k420, 8, 0},           {"444-restarts", 48, 64, Sampling::k444, 10, 2},
    {"422-restarts", 64, 48, Sampling::k422, 10, 5}, {"420-restarts", 96, 96, Sampling::k420, 10, 1},
    {"160-444", 160, 120, Sampling::k444, 60, 0},    {"160-420", 160, 128, Sampling::k420, 40, 7},
    {"320-444", 320, 240, Sampling::k444, 200, 0},   {"fine-444", 24, 16, Sampling::k444, 1, 0},
};

// At least twice the smallest picture of a mode, so that every reduction is met.
constexpr Shape kTinyShapes[] = {
    {"tiny-444", 24, 16, Sampling::k444, 6, 0},
    {"tiny-422", 32, 16, Sampling::k422, 6, 0},
    {"tiny-420", 32, 32, Sampling::k420, 9, 0},
    {"tiny-444-restarts", 24, 24, Sampling::k444, 12, 2},
    {"tiny-420-restarts", 48, 32, Sampling::k420, 20, 1},
    {"reduced-444", 80, 64, Sampling::k444, 90, 0},
    {"reduced-422", 80, 64, Sampling::k422, 90, 3},
    {"reduced-420", 160, 128, Sampling::k420, 250, 0},
    {"fine-422", 16, 16, Sampling::k422, 1, 0},
};

Bytes encodeShape(const Shape& shape) {
    EncodeOptions options;
    options.sampling = shape.sampling;
    options.coarseness = shape.coarseness;
    options.restartInterval = shape.restartInterval;
    return encodePicture(makePicture(shape.width, shape.height, shape.width + shape.coarseness), options);
}

// The scan of an encoded picture: what stands behind its scan header, without EOI.
Bytes scanOf(const Bytes& stream) {
    size_t at = 0;
    while (stream[at] != 0xFF || stream[at + 1] != 0xDA) ++at;
    const size_t first = at + 2 + stream[at + 3];
    return Bytes(stream.begin() + static_cast<std::ptrdiff_t>(first), stream.end() - 2);
}

// The card's own: a template header before bare scan data.
Bytes previewFrame(int32_t number, const Shape& shape) {
    const PreviewHeader& header = *FindPreviewHeader(number);
    JpegStream stream;
    stream.raw(Bytes(header.begin(), header.end())).raw(scanOf(encodeShape(shape))).end();
    return stream.bytes();
}

Bytes greyPicture() {
    JpegStream stream;
    stream.start().segment(0xFE, {1, 2}).quantTable(0, 9).frame(40, 24, {{1, 0x11, 0}}).scanHeader(1);
    ScanWriter scan;
    for (int i = 0; i < 15; ++i) scan.flatBlock(false, i);
    return stream.raw(scan.bytes()).end().bytes();
}

}  // namespace

std::vector<HostileSeed> hostileSeeds() {
    std::vector<HostileSeed> seeds;
    for (const Shape& shape : kShapes) seeds.push_back({shape.name, encodeShape(shape)});
    seeds.push_back({"preview-420", previewFrame(2, {"", 320, 240, Sampling::k420, 250, 0})});
    seeds.push_back({"preview-160", previewFrame(3, {"", 160, 120, Sampling::k444, 80, 0})});
    seeds.push_back({"grey", greyPicture()});
    return seeds;
}

std::vector<HostileSeed> tinySeeds() {
    std::vector<HostileSeed> seeds;
    for (const Shape& shape : kTinyShapes) seeds.push_back({shape.name, encodeShape(shape)});
    seeds.push_back({"grey", greyPicture()});
    return seeds;
}
