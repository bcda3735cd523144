#include "handheld/korvoimgview/avi_movie.h"

#include <algorithm>

namespace viewer {
namespace {

constexpr int kDeepestList = 6;            // lists in lists; files stay below 4
constexpr size_t kMostChunks = 1'000'000;  // of one stream: a day at 10 frames a second
constexpr uint32_t kSlowest = 10'000'000;  // microseconds a frame
constexpr uint32_t kFastest = 1'000;
constexpr uint32_t kUsual = 100'000;  // where the file gives no rate
constexpr uint16_t kPcmTag = 1;

constexpr uint32_t FourCc(const char (&text)[5]) {
    return static_cast<uint32_t>(text[0]) | static_cast<uint32_t>(text[1]) << 8 |
           static_cast<uint32_t>(text[2]) << 16 | static_cast<uint32_t>(text[3]) << 24;
}

int HexDigit(uint8_t c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

class CAviReader {
  public:
    CAviReader(const uint8_t* data, uint32_t size, AviMovie& movie)
        : m_data(data), m_size(size), m_movie(movie) {}

    AviResult Read() {
        if (m_size < 12 || Word(0) != FourCc("RIFF") || Word(8) != FourCc("AVI ")) return AviResult::notAvi;
        ReadChunks(12, m_size, 0);
        FinishStream();
        if (m_video < 0) return AviResult::noMotionJpeg;
        if (m_movie.frames.empty()) return AviResult::noFrames;
        m_movie.microsecondsPerFrame =
            static_cast<uint32_t>(std::clamp<uint64_t>(Pace(), kFastest, kSlowest));
        return AviResult::ok;
    }

  private:
    uint64_t Pace() const {
        if (m_videoScale && m_videoRate) return uint64_t{1'000'000} * m_videoScale / m_videoRate;
        return m_headerRate ? m_headerRate : kUsual;
    }

    // Callers see to it that the bytes are there.
    uint16_t Half(uint32_t at) const { return static_cast<uint16_t>(m_data[at] | m_data[at + 1] << 8); }
    uint32_t Word(uint32_t at) const { return Half(at) | static_cast<uint32_t>(Half(at + 2)) << 16; }

    void ReadChunks(uint64_t at, uint32_t end, int depth) {
        while (at + 8 <= end) {
            const auto head = static_cast<uint32_t>(at);
            const uint32_t body = head + 8;
            const uint32_t stated = Word(head + 4);
            ReadChunk(Word(head), {body, std::min(stated, end - body)}, stated > end - body, depth);
            at = uint64_t{body} + stated + (stated & 1);
        }
    }

    // A chunk cut short by the end of the file is taken as far as it goes, but not as a picture.
    void ReadChunk(uint32_t id, FilePart part, bool cutShort, int depth) {
        const uint32_t body = part.offset, size = part.size;
        if (id == FourCc("LIST")) {
            if (size < 4 || depth == kDeepestList) return;
            if (Word(body) == FourCc("strl")) FinishStream();
            ReadChunks(uint64_t{body} + 4, body + size, depth + 1);
        } else if (id == FourCc("avih")) {
            if (size >= 4) m_headerRate = Word(body);
        } else if (id == FourCc("strh")) {
            if (size >= 28) m_header = body;
        } else if (id == FourCc("strf")) {
            m_format = part;
        } else if (!cutShort) {
            ReadStreamChunk(m_data + body - 8, part);
        }
    }

    // Called where the next stream's list begins and at the end: only then are both parts of a stream known.
    void FinishStream() {
        if (m_header == 0) return;
        const int stream = m_streams++;
        const uint32_t kind = Word(m_header);
        if (kind == FourCc("vids") && m_video < 0 && m_format.size >= 20 &&
            Word(m_format.offset + 16) == FourCc("MJPG")) {
            m_video = stream;
            m_videoScale = Word(m_header + 20);
            m_videoRate = Word(m_header + 24);
        } else if (kind == FourCc("auds") && m_audio < 0 && m_format.size >= 16) {
            ReadSoundFormat(stream);
        }
        m_header = 0;
        m_format = {};
    }

    void ReadSoundFormat(int stream) {
        const uint32_t at = m_format.offset;
        const PcmFormat format = {Half(at + 2), Half(at + 14), Word(at + 4)};
        const bool known = Half(at) == kPcmTag && (format.channels == 1 || format.channels == 2) &&
                           (format.bitsPerSample == 8 || format.bitsPerSample == 16) &&
                           format.samplesPerSecond >= 1000 && format.samplesPerSecond <= 192'000;
        if (!known) return;
        m_audio = stream;
        m_movie.sound = format;
    }

    // "00dc", "00db": a picture of stream 0; "01wb": sound of stream 1.  The number is hexadecimal.
    void ReadStreamChunk(const uint8_t* id, FilePart part) {
        const int high = HexDigit(id[0]), low = HexDigit(id[1]);
        if (high < 0 || low < 0) return;
        FinishStream();
        const int stream = high * 16 + low;
        const bool picture = id[2] == 'd' && (id[3] == 'c' || id[3] == 'b');
        const bool sound = id[2] == 'w' && id[3] == 'b';
        if (picture && stream == m_video && m_movie.frames.size() < kMostChunks)
            m_movie.frames.push_back(part);
        if (sound && stream == m_audio && m_movie.soundBlocks.size() < kMostChunks)
            m_movie.soundBlocks.push_back(part);
    }

    const uint8_t* const m_data;
    const uint32_t m_size;
    AviMovie& m_movie;
    uint32_t m_headerRate = 0;  // microseconds a frame
    uint32_t m_header = 0;      // where the present stream's header lies; 0: none
    FilePart m_format = {};
    int m_streams = 0;
    int m_video = -1, m_audio = -1;  // stream numbers
    uint32_t m_videoScale = 0, m_videoRate = 0;
};

}  // namespace

AviResult ReadAvi(const uint8_t* data, size_t size, AviMovie& movie) {
    movie = {};
    return CAviReader(data, static_cast<uint32_t>(std::min<size_t>(size, UINT32_MAX)), movie).Read();
}

std::vector<uint8_t> CollectSound(const AviMovie& movie, const uint8_t* data) {
    std::vector<uint8_t> sound;
    for (const FilePart& block : movie.soundBlocks)
        sound.insert(sound.end(), data + block.offset, data + block.offset + block.size);
    return sound;
}

}  // namespace viewer
