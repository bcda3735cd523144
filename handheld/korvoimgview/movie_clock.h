// How far a movie has played.  Portable: the caller tells the time.
#pragma once
#include <cstdint>
#include <string>

#include "handheld/korvoimgview/avi_movie.h"

namespace viewer {

// All times are microseconds; `now` comes from any clock that does not run backwards.
class CMovieClock {
  public:
    explicit CMovieClock(uint64_t length) : m_length(length) {}

    bool Playing(uint64_t now) const { return m_playing && Position(now) < m_length; }
    bool AtEnd(uint64_t now) const { return Position(now) >= m_length; }
    // 0 to the movie's length.
    uint64_t Position(uint64_t now) const;

    // Goes on from where it stands; at the end it starts again.
    void Play(uint64_t now);
    void Pause(uint64_t now);
    // Playing or not, to another place; beyond the end means the end.
    void MoveTo(uint64_t position, uint64_t now);

  private:
    uint64_t m_length;
    uint64_t m_position = 0;  // when m_since was noted
    uint64_t m_since = 0;
    bool m_playing = false;
};

// Number of the frame to be seen at a time; the last one at the end.
size_t FrameAt(const AviMovie& movie, uint64_t position);

// Where in the sound the same time lies: a number of bytes of whole samples.
size_t SoundAt(const PcmFormat& format, uint64_t position);

// "1:05", minutes and seconds; begun seconds count only when they are over.
std::wstring TimeText(uint64_t position);

}  // namespace viewer
