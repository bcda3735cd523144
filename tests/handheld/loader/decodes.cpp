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

// Decodes by one engine, which keeps from picture to picture what the program keeps.
class Counted {
  public:
    explicit Counted(const jpeg::ScanEngine& engine) { m_context->engine = &engine; }

    // The first picture of a work is decoded once more before it counts: what is done once is done then.
    void Count(const std::string& work, int32_t mode, const Bytes& stream) {
        if (work != m_work) Decode(mode, stream);
        m_work = work;
        sys::Mark(kRegionMark, kRegionBegins);
        Decode(mode, stream);
        sys::Mark(kRegionMark, kRegionEnds);
    }

  private:
    void Decode(int32_t mode, const Bytes& stream) {
        m_picture.resize(targetPicture(mode).totalBytes);
        m_context->cursors.inputCursor = stream.data();
        m_context->cursors.inputRemaining = static_cast<uint32_t>(stream.size());
        m_context->cursors.outputCursor = m_picture.data();
        if (decode(mode, *m_context, 0) != kDecodeOk) Stop(Line() << "a picture is not decoded");
    }

    TestContext m_context;
    Bytes m_picture;
    std::string m_work;
};

}  // namespace

int CountDecodes(int count, const char** arguments) {
    for (const jpeg::ScanEngine& engine : jpeg::scanEngines()) {
        Counted counted(engine);
        for (int i = 0; i + 1 < count; i += 2) {
            const std::string work = SetOf(arguments[i]) + ":" + arguments[i + 1];
            counted.Count(work, static_cast<int32_t>(std::stoi(arguments[i + 1])), ReadStream(arguments[i]));
            Say(Line() << "decoded " << work.c_str() << " image-" << engine.name << " " << arguments[i]);
        }
    }
    return 0;
}
