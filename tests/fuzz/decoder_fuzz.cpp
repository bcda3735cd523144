#include "fuzz/decoder_fuzz.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "support/engine_set.h"

#if __has_feature(memory_sanitizer)
#include <sanitizer/msan_interface.h>
#endif

namespace {

[[noreturn]] void stop(const char* what, const char* engine) {
    std::fprintf(stderr, "%s: %s\n", engine, what);
    std::abort();
}

// The picture buffers are kept; nothing of the picture before counts as written.
void forget(uint8_t* bytes, size_t size) {
#if __has_feature(memory_sanitizer)
    __msan_poison(bytes, size);
#else
    (void)bytes;
    (void)size;
#endif
}

// A buffer of exactly the mode's size for each engine.
class Pictures {
  public:
    uint8_t* of(size_t engine, int32_t mode) {
        const size_t bytes = targetPicture(mode).totalBytes;
        std::unique_ptr<uint8_t[]>& picture = m_pictures[engine][mode];
        if (!picture) picture.reset(new uint8_t[bytes]);
        forget(picture.get(), bytes);
        return picture.get();
    }

  private:
    static constexpr size_t kMostEngines = 8;
    std::unique_ptr<uint8_t[]> m_pictures[kMostEngines][15];
};

uint64_t sumOf(const uint8_t* bytes, size_t size) {
    uint64_t sum = 0;
    for (size_t i = 0; i < size; ++i) sum += bytes[i];
    return sum;
}

}  // namespace

void fuzzDecode(int32_t mode, const uint8_t* stream, size_t size) {
    static EngineSet engines;
    static Pictures pictures;
    const auto input = std::make_unique<uint8_t[]>(size);
    std::copy(stream, stream + size, input.get());

    const bool planar = targetPicture(mode).planar;
    uint8_t* const expected = pictures.of(0, mode);
    const DecodeTrace first = engines.decodeBy(0, mode, input.get(), size, expected);
    if (!EngineSet::isKnownCode(first.code)) stop("unknown code", engines.name(0));
    if (first.outputBytes > targetPicture(mode).totalBytes) stop("too many bytes", engines.name(0));
    // The comparison depends on every byte: one that was never written stops the memory sanitizer here.
    if (sumOf(expected, first.outputBytes) > uint64_t{255} * first.outputBytes) stop("sum", engines.name(0));
    // No engine takes part in the planar modes.
    for (size_t engine = 1; engine < engines.count() && !planar; ++engine) {
        uint8_t* const picture = pictures.of(engine, mode);
        const DecodeTrace trace = engines.decodeBy(engine, mode, input.get(), size, picture);
        if (!(trace == first)) stop("another code, length or reader", engines.name(engine));
        if (!std::equal(expected, expected + first.outputBytes, picture)) {
            stop("another picture", engines.name(engine));
        }
    }
}
