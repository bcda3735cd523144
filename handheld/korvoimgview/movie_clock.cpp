#include "handheld/korvoimgview/movie_clock.h"

#include <algorithm>

namespace viewer {

constexpr uint64_t kSecond = 1'000'000;

uint64_t CMovieClock::Position(uint64_t now) const {
    const uint64_t played = m_playing && now > m_since ? now - m_since : 0;
    return std::min(m_position + played, m_length);
}

void CMovieClock::Play(uint64_t now) {
    m_position = AtEnd(now) ? 0 : Position(now);
    m_since = now;
    m_playing = true;
}

void CMovieClock::Pause(uint64_t now) {
    m_position = Position(now);
    m_playing = false;
}

void CMovieClock::MoveTo(uint64_t position, uint64_t now) {
    m_position = std::min(position, m_length);
    m_since = now;
}

size_t FrameAt(const AviMovie& movie, uint64_t position) {
    return std::min<size_t>(static_cast<size_t>(position / movie.microsecondsPerFrame),
                            movie.frames.size() - 1);
}

size_t SoundAt(const PcmFormat& format, uint64_t position) {
    const uint64_t samples =
        position / kSecond * format.samplesPerSecond + position % kSecond * format.samplesPerSecond / kSecond;
    return static_cast<size_t>(samples * format.BlockBytes());
}

std::wstring TimeText(uint64_t position) {
    const uint64_t seconds = position / kSecond;
    const std::wstring last = std::to_wstring(seconds % 60);
    return std::to_wstring(seconds / 60) + (last.size() < 2 ? L":0" : L":") + last;
}

}  // namespace viewer
