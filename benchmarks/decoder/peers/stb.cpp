#include "benchmarks/decoder/peers/stb.h"

#include <algorithm>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#pragma GCC diagnostic ignored "-Wshadow"
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_JPEG
#define STBI_NO_STDIO
#include <stb_image.h>
#pragma GCC diagnostic pop

#include "benchmarks/decoder/corpus/corpus.h"

namespace {

constexpr int kChannels = 3;

void put565(const uint8_t* rgb, uint8_t* out) {
    const int pixel = (rgb[0] >> 3) << 11 | (rgb[1] >> 2) << 5 | rgb[2] >> 3;
    out[0] = static_cast<uint8_t>(pixel);
    out[1] = static_cast<uint8_t>(pixel >> 8);
}

void putBgr(const uint8_t* rgb, uint8_t* out) {
    out[0] = rgb[2];
    out[1] = rgb[1];
    out[2] = rgb[0];
}

class CStb : public CContender {
  public:
    std::string name() const override { return "stb"; }
    bool prepare(const Task& task) override {
        m_task = std::make_unique<Task>(task);
        return task.reduction == 1;
    }
    corpus::Stream adapted(const corpus::Stream& stream) const override {
        return m_task->set.headerTemplate != 0 ? corpus::completed(stream) : stream;
    }

    bool decode(const corpus::Stream& stream, uint8_t* picture) override {
        int width = 0, height = 0, channels = 0;
        uint8_t* const pixels = stbi_load_from_memory(stream.data(), static_cast<int>(stream.size()), &width,
                                                      &height, &channels, kChannels);
        if (pixels == nullptr) return false;
        const bool fits = width == m_task->set.width && height == m_task->set.height;
        if (fits) m_task->is565 ? convert<2>(pixels, picture, put565) : convert<3>(pixels, picture, putBgr);
        stbi_image_free(pixels);
        return fits;
    }

  private:
    template <size_t pixelBytes, class Put>
    void convert(const uint8_t* pixels, uint8_t* picture, const Put& put) const {
        const uint32_t group = m_task->dropsEachFourth ? 3 : m_task->target.width;
        for (uint32_t y = 0; y < m_task->target.height; ++y) {
            const uint32_t line = m_task->dropsEachFourth ? y + y / 3 : y;
            const uint8_t* in =
                pixels + static_cast<size_t>(line) * static_cast<size_t>(m_task->set.width) * kChannels;
            uint8_t* out = picture + y * m_task->target.rowBytes;
            for (uint32_t x = 0; x < m_task->target.width; x += group) {
                for (uint32_t i = 0; i < group; ++i, in += kChannels, out += pixelBytes) put(in, out);
                in += kChannels;  // the fourth column
            }
        }
    }

    std::unique_ptr<Task> m_task;
};

}  // namespace

std::unique_ptr<CContender> stbDecoder() {
    return std::make_unique<CStb>();
}
