#include "support/decode_run.h"

#include <algorithm>

Decoded runDecode(DecoderContext& context, int32_t mode, const Bytes& stream, uint32_t statsEnabled) {
    const auto input = std::make_unique<uint8_t[]>(stream.size());
    std::copy(stream.begin(), stream.end(), input.get());
    const uint32_t pictureBytes = targetPicture(mode).totalBytes;
    const auto picture = std::make_unique<uint8_t[]>(pictureBytes);
    context.cursors.inputCursor = input.get();
    context.cursors.inputRemaining = static_cast<uint32_t>(stream.size());
    context.cursors.outputCursor = picture.get();
    const uint32_t code = decode(mode, context, statsEnabled);
    return {code, Bytes(picture.get(), picture.get() + context.cursors.outputBytes)};
}

Decoded runDecode(int32_t mode, const Bytes& stream) {
    TestContext context;
    return runDecode(*context, mode, stream);
}
