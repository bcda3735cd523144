// One open movie: its frames by the clock, its sound beside them.
#pragma once
#include <string>
#include <vector>

#include "handheld/korvoimgview/movie_clock.h"
#include "handheld/korvoimgview/picture_decoder.h"
#include "handheld/korvoimgview/wave_output.h"

namespace viewer {

class CMoviePlayer {
  public:
    explicit CMoviePlayer(const CPictureDecoder& decoder) : m_decoder(decoder) {}

    // Takes a whole file and shows its first frame; false when it is no movie that can be played.
    bool Open(std::vector<uint8_t> file);

    bool Playing() const { return m_clock.Playing(Now()); }
    void Play();
    void Pause();
    void MoveTo(uint64_t position);  // microseconds

    // Decodes the frame that is due; true when it is another one than before.
    bool Advance();

    // The last frame that could be decoded.
    const Pixels& Picture() const { return m_picture; }
    uint64_t Position() const { return m_clock.Position(Now()); }
    uint64_t Length() const { return m_movie.Microseconds(); }

  private:
    static uint64_t Now();
    bool DecodeFrame(size_t number);

    const CPictureDecoder& m_decoder;
    std::vector<uint8_t> m_file, m_sound;
    AviMovie m_movie;
    CMovieClock m_clock{0};
    CWaveOutput m_output;
    Pixels m_picture;
    size_t m_shown = 0;  // number of the frame decoded last
};

}  // namespace viewer
