#include "support/engine_set.h"

#include "jpeg/scan_engine.h"

bool operator==(const DecodeTrace& a, const DecodeTrace& b) {
    return a.code == b.code && a.outputBytes == b.outputBytes && a.inputLeft == b.inputLeft &&
           a.heldBits == b.heldBits && a.heldCount == b.heldCount;
}

EngineSet::EngineSet() {
    for (const jpeg::ScanEngine& engine : jpeg::scanEngines()) {
        if (!engine.supported()) continue;
        m_contexts.push_back(std::make_unique<DecoderContext>());
        buildHuffmanTables(*m_contexts.back());
        m_contexts.back()->engine = &engine;
    }
}

EngineSet::~EngineSet() {
    for (const auto& context : m_contexts) releaseBuffers(*context);
}

const char* EngineSet::name(size_t engine) const {
    return m_contexts[engine]->engine->name;
}

DecodeTrace EngineSet::decodeBy(size_t engine, int32_t mode, const uint8_t* stream, size_t size,
                                uint8_t* picture) {
    DecoderContext& context = *m_contexts[engine];
    DecoderCursors& cursors = context.cursors;
    cursors.inputCursor = stream;
    cursors.inputRemaining = static_cast<uint32_t>(size);
    cursors.outputCursor = picture;
    // An empty stream starts no reader; that of the decode before must not show.
    cursors.chunkCursor = cursors.chunkEnd = nullptr;
    context.bitCount = 0;
    const uint32_t code = decode(mode, context, 0);
    const auto inChunk = static_cast<uint32_t>(cursors.chunkEnd - cursors.chunkCursor);
    const uint32_t mask = context.bitCount < 32 ? (1u << context.bitCount) - 1 : ~0u;
    return {code, cursors.outputBytes, cursors.inputRemaining + inChunk, context.bitBuffer & mask,
            context.bitCount};
}

bool EngineSet::isKnownCode(uint32_t code) {
    return code <= 4 || (code >= 6 && code <= 11) || code == 13 || code == 18;
}
