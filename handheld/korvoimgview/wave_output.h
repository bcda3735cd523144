// A movie's sound through the desktop's wave output.
#pragma once
#include <windows.h>

#include <mmsystem.h>

#include <vector>

#include "handheld/korvoimgview/avi_movie.h"

namespace viewer {

// Silent, without any message, on a desktop that has no sound device.
class CWaveOutput {
  public:
    CWaveOutput() = default;
    ~CWaveOutput() { Stop(); }
    CWaveOutput(const CWaveOutput&) = delete;
    CWaveOutput& operator=(const CWaveOutput&) = delete;

    // Plays the samples from byte `from` on; they must stay where they are until Stop.
    void Play(const PcmFormat& format, std::vector<uint8_t>& samples, size_t from);
    void Stop();

  private:
    HWAVEOUT m_device = nullptr;
    WAVEHDR m_header = {};
};

}  // namespace viewer
