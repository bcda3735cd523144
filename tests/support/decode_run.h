// One decode as a caller makes it, for tests.
#pragma once
#include <memory>

#include "jpeg/decoder.h"
#include "support/jpeg_stream.h"

// A context with its tables built, freed at the end of the test.
class TestContext {
  public:
    TestContext() : m_context(std::make_unique<DecoderContext>()) { buildHuffmanTables(*m_context); }
    ~TestContext() { releaseBuffers(*m_context); }
    TestContext(const TestContext&) = delete;
    TestContext& operator=(const TestContext&) = delete;
    DecoderContext& operator*() { return *m_context; }
    DecoderContext* operator->() { return m_context.get(); }

  private:
    std::unique_ptr<DecoderContext> m_context;
};

struct Decoded {
    uint32_t code;
    Bytes picture;  // the bytes delivered
};

// Input and picture buffer have exactly their sizes, so that an address sanitizer sees one byte too many.
Decoded runDecode(DecoderContext& context, int32_t mode, const Bytes& stream, uint32_t statsEnabled = 0);
Decoded runDecode(int32_t mode, const Bytes& stream);
