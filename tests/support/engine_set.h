// One stream through every engine that this processor can run, each held against the portable one.
#pragma once
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "jpeg/decoder.h"

// What a caller can see of one decode, less the picture.
struct DecodeTrace {
    uint32_t code;
    uint32_t outputBytes;
    uint32_t inputLeft;  // bytes that the reader has not touched
    uint32_t heldBits;   // unread bits of the reservoir, and how many
    int32_t heldCount;
};
bool operator==(const DecodeTrace& a, const DecodeTrace& b);

// Keeps a context for each engine over all its decodes, as the program does.
class EngineSet {
  public:
    EngineSet();
    ~EngineSet();
    EngineSet(const EngineSet&) = delete;
    EngineSet& operator=(const EngineSet&) = delete;

    size_t count() const { return m_contexts.size(); }
    const char* name(size_t engine) const;

    // One decode by one engine, into `picture` (totalBytes of the mode).
    DecodeTrace decodeBy(size_t engine, int32_t mode, const uint8_t* stream, size_t size, uint8_t* picture);

    // The code of a decode is one that callers know.
    static bool isKnownCode(uint32_t code);

  private:
    std::vector<std::unique_ptr<DecoderContext>> m_contexts;
};
