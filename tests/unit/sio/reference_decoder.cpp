#include "reference_decoder.h"

#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <initializer_list>

#include <jpeglib.h>

#include "handheld/sio/encoder/frame_steps.h"
#include "handheld/sio/encoder/huffman_tables.h"

namespace {

struct ErrorExit {
    jpeg_error_mgr base;
    std::jmp_buf back;
};

void leave(j_common_ptr codec) {
    std::longjmp(reinterpret_cast<ErrorExit*>(codec->err)->back, 1);
}
void quiet(j_common_ptr) {}

void append(std::vector<uint8_t>& out, std::initializer_list<int> bytes) {
    for (int byte : bytes) out.push_back(static_cast<uint8_t>(byte));
}

void appendHuffman(std::vector<uint8_t>& out, int id, const sio::HuffmanSpec& spec) {
    const int length = 19 + spec.symbolCount;
    append(out, {0xFF, 0xC4, length >> 8, length & 0xFF, id});
    out.insert(out.end(), spec.counts, spec.counts + 16);
    out.insert(out.end(), spec.symbols, spec.symbols + spec.symbolCount);
}

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

std::vector<uint8_t> completeFrame(const std::vector<uint8_t>& scan, int width, int height,
                                   sio::Sampling sampling) {
    std::vector<uint8_t> out;
    append(out, {0xFF, 0xD8, 0xFF, 0xDB, 0, 132, 0});
    out.insert(out.end(), sio::kFrameSteps.luma.begin(), sio::kFrameSteps.luma.end());
    append(out, {1});
    out.insert(out.end(), sio::kFrameSteps.chroma.begin(), sio::kFrameSteps.chroma.end());
    append(out, {0xFF, 0xC0, 0, 17, 8, height >> 8, height & 0xFF, width >> 8, width & 0xFF, 3});
    append(out, {1, sampling.across << 4 | sampling.down, 0, 2, 0x11, 1, 3, 0x11, 1});
    appendHuffman(out, 0x00, sio::kLumaDc);
    appendHuffman(out, 0x10, sio::kLumaAc);
    appendHuffman(out, 0x01, sio::kChromaDc);
    appendHuffman(out, 0x11, sio::kChromaAc);
    append(out, {0xFF, 0xDA, 0, 12, 3, 1, 0x00, 2, 0x11, 3, 0x11, 0, 63, 0});
    out.insert(out.end(), scan.begin(), scan.end());
    return out;
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
