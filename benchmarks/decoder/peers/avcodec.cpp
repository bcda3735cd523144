#include "benchmarks/decoder/peers/avcodec.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/imgutils.h>
#include <libswscale/swscale.h>
}

namespace {

void keepBuffer(void*, uint8_t*) {}

class CAvcodec : public CContender {
  public:
    CAvcodec() : m_packet(av_packet_alloc()), m_frame(av_frame_alloc()) { av_log_set_level(AV_LOG_QUIET); }
    ~CAvcodec() override {
        av_frame_free(&m_frame);
        av_packet_free(&m_packet);
        close();
    }
    CAvcodec(const CAvcodec&) = delete;
    CAvcodec& operator=(const CAvcodec&) = delete;

    std::string name() const override { return "avcodec"; }
    bool prepare(const Task& task) override {
        close();
        m_task = std::make_unique<Task>(task);
        const AVCodec* const codec = avcodec_find_decoder(AV_CODEC_ID_MJPEG);
        m_codec = avcodec_alloc_context3(codec);
        m_codec->thread_count = 1;
        m_codec->lowres = __builtin_ctz(task.reduction);
        return avcodec_open2(m_codec, codec, nullptr) == 0;
    }

    // It reads a little past the end.
    corpus::Stream adapted(const corpus::Stream& stream) const override {
        corpus::Stream padded = stream;
        padded.resize(stream.size() + AV_INPUT_BUFFER_PADDING_SIZE);
        return padded;
    }

    bool decode(const corpus::Stream& stream, uint8_t* picture) override {
        uint8_t* const data = const_cast<uint8_t*>(stream.data());  // AVPacket knows no read-only memory
        m_packet->buf = av_buffer_create(data, stream.size(), keepBuffer, nullptr, AV_BUFFER_FLAG_READONLY);
        m_packet->data = data;
        m_packet->size = static_cast<int>(stream.size() - AV_INPUT_BUFFER_PADDING_SIZE);
        const bool decoded =
            avcodec_send_packet(m_codec, m_packet) == 0 && avcodec_receive_frame(m_codec, m_frame) == 0;
        av_packet_unref(m_packet);
        if (!decoded) return false;
        const bool converted = convert(picture);
        av_frame_unref(m_frame);
        return converted;
    }

  private:
    void close() {
        avcodec_free_context(&m_codec);
        sws_freeContext(m_scaler);
        m_scaler = nullptr;
    }

    bool convert(uint8_t* picture) {
        const int width = static_cast<int>(m_task->target.width);
        const int height = static_cast<int>(m_task->target.height);
        if (m_scaler == nullptr) {
            m_scaler = sws_getContext(
                m_frame->width, m_frame->height, static_cast<AVPixelFormat>(m_frame->format), width, height,
                m_task->is565 ? AV_PIX_FMT_RGB565LE : AV_PIX_FMT_BGR24, SWS_POINT, nullptr, nullptr, nullptr);
        }
        if (m_scaler == nullptr) return false;
        uint8_t* const planes[4] = {picture};
        const int strides[4] = {static_cast<int>(m_task->target.rowBytes)};
        return sws_scale(m_scaler, m_frame->data, m_frame->linesize, 0, m_frame->height, planes, strides) ==
               height;
    }

    AVCodecContext* m_codec = nullptr;
    SwsContext* m_scaler = nullptr;
    AVPacket* m_packet;
    AVFrame* m_frame;
    std::unique_ptr<Task> m_task;
};

}  // namespace

std::unique_ptr<CContender> avcodecDecoder() {
    return std::make_unique<CAvcodec>();
}
