// Pictures and tables against libjpeg.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>

extern "C" {
#include <jpeglib.h>
}

#include "support/decode_run.h"
#include "support/picture_encoder.h"

namespace {

Bytes encodeWithLibjpeg(const TestPicture& picture, Sampling sampling, int quality) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors;
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &memory, &size);
    info.image_width = picture.width;
    info.image_height = picture.height;
    info.input_components = 3;
    info.in_color_space = JCS_YCbCr;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    info.comp_info[0].h_samp_factor = static_cast<int>(lumaAcross(sampling));
    info.comp_info[0].v_samp_factor = static_cast<int>(lumaDown(sampling));
    jpeg_start_compress(&info, TRUE);
    Bytes row(picture.width * 3);
    for (uint32_t y = 0; y < picture.height; ++y) {
        for (uint32_t i = 0; i < row.size(); ++i) row[i] = picture.planes[i % 3][y * picture.width + i / 3];
        JSAMPROW rows[] = {row.data()};
        jpeg_write_scanlines(&info, rows, 1);
    }
    jpeg_finish_compress(&info);
    Bytes stream(memory, memory + size);
    jpeg_destroy_compress(&info);
    std::free(memory);
    return stream;
}

// Rows of B G R at 1:1.
Bytes decodeWithLibjpeg(const Bytes& stream) {
    jpeg_decompress_struct info{};
    jpeg_error_mgr errors;
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, stream.data(), static_cast<unsigned long>(stream.size()));
    jpeg_read_header(&info, TRUE);
    info.out_color_space = JCS_RGB;
    info.do_fancy_upsampling = FALSE;
    jpeg_start_decompress(&info);
    Bytes picture;
    Bytes row(info.output_width * 3);
    while (info.output_scanline < info.output_height) {
        JSAMPROW rows[] = {row.data()};
        jpeg_read_scanlines(&info, rows, 1);
        for (size_t i = 0; i < row.size(); i += 3)
            picture.insert(picture.end(), {row[i + 2], row[i + 1], row[i]});
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
    return picture;
}

double psnr(const Bytes& one, const Bytes& other) {
    double sum = 0;
    for (size_t i = 0; i < one.size(); ++i) sum += (one[i] - other[i]) * (one[i] - other[i]);
    return sum == 0 ? 99 : 10 * std::log10(255 * 255 * static_cast<double>(one.size()) / sum);
}

}  // namespace

TEST(Libjpeg, OneToOneModesAgree) {
    struct Case {
        int32_t mode;
        uint32_t width, height;
    };
    for (const Case& item : {Case{8, 320, 240}, Case{10, 160, 120}}) {
        for (Sampling sampling : {Sampling::k444, Sampling::k422, Sampling::k420}) {
            if (sampling == Sampling::k420 && item.height % 16 != 0) continue;
            for (int quality : {30, 75, 95}) {
                for (uint32_t seed = 0; seed < 5; ++seed) {
                    const TestPicture picture = makePicture(item.width, item.height, seed);
                    const Bytes stream = encodeWithLibjpeg(picture, sampling, quality);
                    const Decoded decoded = runDecode(item.mode, stream);
                    ASSERT_EQ(decoded.code, kDecodeOk);
                    // Both repeat shared chroma without smoothing, so no layout may do worse.
                    EXPECT_GE(psnr(decoded.picture, decodeWithLibjpeg(stream)), 40)
                        << item.mode << " quality " << quality << " seed " << seed;
                }
            }
        }
    }
}

TEST(Libjpeg, ReadsWhatTheTestEncoderWrites) {
    const TestPicture picture = makePicture(320, 240, 2);
    EncodeOptions options;
    options.restartInterval = 7;
    Bytes stream = encodePicture(picture, options);
    // libjpeg wants the Huffman tables that our streams leave out; its own encoder supplies them.
    const Bytes donor = encodeWithLibjpeg(picture, Sampling::k444, 75);
    Bytes tables;
    for (size_t at = 2; donor[at + 1] != 0xDA;) {
        const size_t length = donor[at + 2] * 256u + donor[at + 3] + 2;
        if (donor[at + 1] == 0xC4) tables.insert(tables.end(), &donor[at], &donor[at + length]);
        at += length;
    }
    stream.insert(stream.begin() + 2, tables.begin(), tables.end());
    EXPECT_GE(psnr(runDecode(8, stream).picture, decodeWithLibjpeg(stream)), 40);
}

TEST(Libjpeg, HasTheSameTypicalTables) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors;
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    info.image_width = info.image_height = 8;
    info.input_components = 3;
    info.in_color_space = JCS_YCbCr;
    jpeg_set_defaults(&info);
    TestContext context;
    for (int slot = 0; slot < 4; ++slot) {
        const JHUFF_TBL* peer = (slot < 2 ? info.dc_huff_tbl_ptrs : info.ac_huff_tbl_ptrs)[slot % 2];
        const HuffmanTable& table = context->huffman[slot];
        EXPECT_EQ(Bytes(table.bits + 1, table.bits + 17), Bytes(peer->bits + 1, peer->bits + 17)) << slot;
        const int count = slot < 2 ? 12 : 162;
        EXPECT_EQ(Bytes(table.huffVal, table.huffVal + count), Bytes(peer->huffval, peer->huffval + count))
            << slot;
    }
    jpeg_destroy_compress(&info);
}
