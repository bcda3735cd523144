#include "jpeg/bit_reader.h"

#include <cstring>

namespace jpeg {

uint32_t fillChunk(DecoderContext& context) {
    DecoderCursors& cursors = context.cursors;
    const uint32_t count =
        cursors.inputRemaining < kInputChunkBytes ? cursors.inputRemaining : kInputChunkBytes;
    if (count == 0) return 0;
    std::memcpy(context.inputChunk, cursors.inputCursor, count);
    cursors.inputCursor += count;
    cursors.inputRemaining -= count;
    return count;
}

}  // namespace jpeg
