// What an AVI file with Motion-JPEG pictures holds, and where.  Portable.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace viewer {

// Bytes of the file; always inside it.
struct FilePart {
    uint32_t offset, size;
};

struct PcmFormat {
    uint16_t channels;       // 1 or 2
    uint16_t bitsPerSample;  // 8 or 16
    uint32_t samplesPerSecond;

    uint32_t BlockBytes() const { return channels * bitsPerSample / 8u; }
    uint32_t BytesPerSecond() const { return samplesPerSecond * BlockBytes(); }
};

struct AviMovie {
    uint32_t microsecondsPerFrame = 0;  // 1,000 to 10,000,000
    std::vector<FilePart> frames;       // a frame of no bytes repeats the one before
    std::optional<PcmFormat> sound;     // nothing: silent, or a sound that cannot be played
    std::vector<FilePart> soundBlocks;

    uint64_t Microseconds() const { return uint64_t{microsecondsPerFrame} * frames.size(); }
};

enum class AviResult {
    ok,
    notAvi,        // no RIFF file of the AVI kind
    noMotionJpeg,  // no stream of Motion-JPEG pictures
    noFrames,      // such a stream, but nothing in it
};

// Takes the frames in the order in which they lie in the file, whether or not there is an index, so that a
// movie cut short plays as far as it goes.  Reads the first stream of either sort.  `movie` is complete only
// when the result is ok.  Files beyond 4 GiB are read up to there.
AviResult ReadAvi(const uint8_t* data, size_t size, AviMovie& movie);

// The sound in one piece.
std::vector<uint8_t> CollectSound(const AviMovie& movie, const uint8_t* data);

}  // namespace viewer
