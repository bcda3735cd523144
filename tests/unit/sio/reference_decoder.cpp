#include "reference_decoder.h"

#include <cmath>
#include <csetjmp>
#include <cstdio>

#include <jpeglib.h>

namespace {

struct ErrorExit {
    jpeg_error_mgr base;
    std::jmp_buf back;
};

void leave(j_common_ptr codec) {
    std::longjmp(reinterpret_cast<ErrorExit*>(codec->err)->back, 1);
}
void quiet(j_common_ptr) {}

}  // namespace

sio::Picture decodeReference(const std::vector<uint8_t>& stream) {
    sio::Picture picture;
    jpeg_decompress_struct codec;
    ErrorExit errors;
    codec.err = jpeg_std_error(&errors.base);
    errors.base.error_exit = leave;
    errors.base.output_message = quiet;
    if (setjmp(errors.back)) {
        jpeg_destroy_decompress(&codec);
        return {};
    }
    jpeg_create_decompress(&codec);
    jpeg_mem_src(&codec, stream.data(), static_cast<unsigned long>(stream.size()));
    jpeg_read_header(&codec, TRUE);
    jpeg_start_decompress(&codec);
    picture.resize(static_cast<int>(codec.output_width), static_cast<int>(codec.output_height));
    while (codec.output_scanline < codec.output_height) {
        JSAMPROW row = reinterpret_cast<JSAMPROW>(picture.row(static_cast<int>(codec.output_scanline)));
        jpeg_read_scanlines(&codec, &row, 1);
    }
    jpeg_finish_decompress(&codec);
    const bool clean = errors.base.num_warnings == 0;
    jpeg_destroy_decompress(&codec);
    return clean ? picture : sio::Picture{};
}

double psnr(const sio::Picture& a, const sio::Picture& b) {
    if (a.width != b.width || a.height != b.height || a.empty()) return 0;
    double sum = 0;
    for (size_t i = 0; i < a.pixels.size(); ++i) {
        const sio::Rgb &p = a.pixels[i], &q = b.pixels[i];
        sum += (p.r - q.r) * (p.r - q.r) + (p.g - q.g) * (p.g - q.g) + (p.b - q.b) * (p.b - q.b);
    }
    return sum == 0 ? 99 : 10 * std::log10(255.0 * 255.0 * 3 * a.pixels.size() / sum);
}
