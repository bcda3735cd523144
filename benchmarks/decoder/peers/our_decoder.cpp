#include "benchmarks/decoder/peers/our_decoder.h"

#include "jpeg/scan_engine.h"

namespace {

class COurDecoder : public CContender {
  public:
    explicit COurDecoder(const jpeg::ScanEngine& engine) : m_context(std::make_unique<DecoderContext>()) {
        buildHuffmanTables(*m_context);
        m_context->engine = &engine;
    }
    ~COurDecoder() override { releaseBuffers(*m_context); }

    std::string name() const override { return std::string("ours-") + m_context->engine->name; }
    bool prepare(const Task& task) override {
        m_mode = task.mode;
        return true;
    }
    bool decode(const corpus::Stream& stream, uint8_t* picture) override {
        m_context->cursors.inputCursor = stream.data();
        m_context->cursors.inputRemaining = static_cast<uint32_t>(stream.size());
        m_context->cursors.outputCursor = picture;
        return ::decode(m_mode, *m_context, 0) == kDecodeOk;
    }

  private:
    const std::unique_ptr<DecoderContext> m_context;
    int32_t m_mode = 0;
};

}  // namespace

Contenders ourDecoders() {
    Contenders all;
    for (const jpeg::ScanEngine& engine : jpeg::scanEngines())
        if (engine.supported()) all.push_back(std::make_unique<COurDecoder>(engine));
    return all;
}
