#include "handheld/loader/decodes.h"

#include <cstring>
#include <string>

#include "benchmarks/decoder/count/region_mark.h"
#include "handheld/loader/line.h"
#include "handheld/loader/system_calls.h"
#include "jpeg/scan_engine.h"
#include "support/decode_run.h"

namespace {

Bytes ReadStream(const char* path) {
    const int file = sys::Open(path);
    if (file < 0) Stop(Line() << "cannot open " << path);
    Bytes stream;
    uint8_t part[4096];
    for (int got; (got = sys::Read(file, part, sizeof part)) > 0;)
        stream.insert(stream.end(), part, part + got);
    sys::Close(file);
    return stream;
}

std::string SetOf(const std::string& path) {
    const std::string name = path.substr(path.rfind('/') + 1);
    return name.substr(0, name.rfind('-'));
}

uint32_t Decode(DecoderContext& context, int32_t mode, const Bytes& stream, Bytes& picture) {
    context.cursors.inputCursor = stream.data();
    context.cursors.inputRemaining = static_cast<uint32_t>(stream.size());
    context.cursors.outputCursor = picture.data();
    return decode(mode, context, 0);
}

// What is done once is done in the first decode.
void CountOne(const jpeg::ScanEngine& engine, int32_t mode, const Bytes& stream) {
    TestContext context;
    context->engine = &engine;
    Bytes picture(targetPicture(mode).totalBytes);
    uint32_t code = Decode(*context, mode, stream, picture);
    sys::Mark(kRegionMark, kRegionBegins);
    code |= Decode(*context, mode, stream, picture);
    sys::Mark(kRegionMark, kRegionEnds);
    if (code != kDecodeOk) Stop(Line() << "a picture is not decoded");
}

}  // namespace

int CountDecodes(int count, const char** arguments) {
    for (const jpeg::ScanEngine& engine : jpeg::scanEngines()) {
        for (int i = 0; i + 1 < count; i += 2) {
            const auto mode = static_cast<int32_t>(std::stoi(arguments[i + 1]));
            CountOne(engine, mode, ReadStream(arguments[i]));
            Say(Line() << "decoded " << SetOf(arguments[i]).c_str() << ":" << arguments[i + 1] << " image-"
                       << engine.name << " " << arguments[i]);
        }
    }
    return 0;
}
