// Writes the starting streams of the decoder's fuzz targets into a folder, one file each.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

#include "support/picture_encoder.h"
#include "support/scan_writer.h"

namespace {

bool write(const std::string& path, const Bytes& stream) {
    // Before the stream the byte that chooses the mode.
    Bytes bytes = {static_cast<uint8_t>(stream.size())};
    bytes.insert(bytes.end(), stream.begin(), stream.end());
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return !file.fail();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: make_fuzz_seeds FOLDER\n";
        return 2;
    }
    const std::string folder = std::string(argv[1]) + "/seed-";
    bool written = true;
    int number = 0;
    for (Sampling sampling : {Sampling::k444, Sampling::k422, Sampling::k420}) {
        for (uint32_t width : {16, 48, 160}) {
            for (uint16_t interval : {0, 2}) {
                EncodeOptions options;
                options.sampling = sampling;
                options.coarseness = 20;
                options.restartInterval = interval;
                const Bytes stream = encodePicture(makePicture(width, width * 3 / 4, 1), options);
                written = write(folder + std::to_string(number++), stream) && written;
            }
        }
    }
    JpegStream grey;
    grey.start().segment(0xFE, {1, 2}).quantTable(0, 9).frame(40, 24, {{1, 0x11, 0}}).scanHeader(1);
    ScanWriter scan;
    for (int i = 0; i < 15; ++i) scan.flatBlock(false, i);
    written = write(folder + "grey", grey.raw(scan.bytes()).end().bytes()) && written;
    if (!written) std::cerr << "make_fuzz_seeds: cannot write to " << argv[1] << "\n";
    return written ? 0 : 2;
}
