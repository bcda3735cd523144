#include "benchmarks/decoder/peers/turbo.h"

#include <csetjmp>
#include <cstdio>

// Needs what <cstdio> declares.
#include <jpeglib.h>

#include "benchmarks/decoder/picture_buffer.h"

namespace {

struct Errors {
    jpeg_error_mgr manager;
    std::jmp_buf failed;
};

void giveUp(j_common_ptr info) {
    std::longjmp(reinterpret_cast<Errors*>(info->err)->failed, 1);
}
// The byte between the segments of the preview headers draws a warning with every frame.
void keepQuiet(j_common_ptr, int) {}

class CTurbo : public CContender {
  public:
    CTurbo() {
        m_info.err = jpeg_std_error(&m_errors.manager);
        m_errors.manager.error_exit = giveUp;
        m_errors.manager.emit_message = keepQuiet;
        jpeg_create_decompress(&m_info);
    }
    ~CTurbo() override { jpeg_destroy_decompress(&m_info); }

    std::string name() const override { return "turbo"; }
    bool prepare(const Task& task) override {
        m_task = std::make_unique<Task>(task);
        m_fullRowBytes = static_cast<size_t>(task.set.width) * task.target.bytesPerPixel;
        m_full =
            CPictureBuffer(task.dropsEachFourth ? m_fullRowBytes * static_cast<size_t>(task.set.height) : 0);
        m_rows.clear();
        const uint32_t rows =
            task.dropsEachFourth ? static_cast<uint32_t>(task.set.height) : task.target.height;
        m_rows.resize(rows);
        return true;
    }

    bool decode(const corpus::Stream& stream, uint8_t* picture) override {
        if (setjmp(m_errors.failed) != 0) {
            jpeg_abort_decompress(&m_info);
            return false;
        }
        const bool drops = m_task->dropsEachFourth;
        uint8_t* const out = drops ? m_full.data() : picture;
        const size_t rowBytes = drops ? m_fullRowBytes : m_task->target.rowBytes;
        for (size_t y = 0; y < m_rows.size(); ++y) m_rows[y] = out + y * rowBytes;

        jpeg_mem_src(&m_info, stream.data(), stream.size());
        jpeg_read_header(&m_info, TRUE);
        m_info.dct_method = JDCT_ISLOW;
        m_info.do_fancy_upsampling = FALSE;
        m_info.dither_mode = JDITHER_NONE;
        m_info.out_color_space = m_task->is565 ? JCS_RGB565 : JCS_EXT_BGR;
        m_info.scale_num = 1;
        m_info.scale_denom = m_task->reduction;
        jpeg_start_decompress(&m_info);
        if (m_info.output_height != m_rows.size()) giveUp(reinterpret_cast<j_common_ptr>(&m_info));
        while (m_info.output_scanline < m_info.output_height)
            jpeg_read_scanlines(&m_info, &m_rows[m_info.output_scanline],
                                m_info.output_height - m_info.output_scanline);
        jpeg_finish_decompress(&m_info);
        if (drops) copyThreeOfFour(m_full.data(), m_fullRowBytes, *m_task, picture);
        return true;
    }

  private:
    jpeg_decompress_struct m_info{};
    Errors m_errors{};
    std::unique_ptr<Task> m_task;
    size_t m_fullRowBytes = 0;
    CPictureBuffer m_full;  // the undiminished picture
    std::vector<uint8_t*> m_rows;
};

}  // namespace

std::unique_ptr<CContender> turboDecoder() {
    return std::make_unique<CTurbo>();
}
