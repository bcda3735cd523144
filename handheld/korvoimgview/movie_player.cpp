#include "handheld/korvoimgview/movie_player.h"

#include "handheld/korvoimgview/movie_frame.h"

namespace viewer {

bool CMoviePlayer::Open(std::vector<uint8_t> file) {
    m_file = std::move(file);
    if (ReadAvi(m_file.data(), m_file.size(), m_movie) != AviResult::ok) return false;
    m_sound = CollectSound(m_movie, m_file.data());
    m_clock = CMovieClock(m_movie.Microseconds());
    // A movie may begin with a damaged frame, but one of them must be good.
    for (size_t i = 0; i < m_movie.frames.size(); ++i)
        if (DecodeFrame(i)) return true;
    return false;
}

void CMoviePlayer::Play() {
    m_clock.Play(Now());
    if (m_movie.sound) m_output.Play(*m_movie.sound, m_sound, SoundAt(*m_movie.sound, Position()));
}

void CMoviePlayer::Pause() {
    m_clock.Pause(Now());
    m_output.Stop();
}

void CMoviePlayer::MoveTo(uint64_t position) {
    const bool playing = Playing();
    m_clock.MoveTo(position, Now());
    if (playing) Play();
}

bool CMoviePlayer::Advance() {
    const size_t due = FrameAt(m_movie, Position());
    if (due == m_shown) return false;
    m_shown = due;
    return DecodeFrame(due);
}

bool CMoviePlayer::DecodeFrame(size_t number) {
    const FilePart& part = m_movie.frames[number];
    const std::vector<uint8_t> frame = CompleteFrame(m_file.data() + part.offset, part.size);
    return m_decoder.Decode(frame, m_picture) == DecodeResult::ok;
}

uint64_t CMoviePlayer::Now() {
    return GetTickCount64() * 1000;
}

}  // namespace viewer
