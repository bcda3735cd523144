#include "handheld/korvoimgview/wave_output.h"

namespace viewer {

void CWaveOutput::Play(const PcmFormat& format, std::vector<uint8_t>& samples, size_t from) {
    Stop();
    const size_t whole = samples.size() - samples.size() % format.BlockBytes();
    if (from >= whole) return;
    const WAVEFORMATEX wave = {WAVE_FORMAT_PCM,
                               format.channels,
                               format.samplesPerSecond,
                               format.BytesPerSecond(),
                               static_cast<WORD>(format.BlockBytes()),
                               format.bitsPerSample,
                               0};
    if (waveOutOpen(&m_device, WAVE_MAPPER, &wave, 0, 0, CALLBACK_NULL) != MMSYSERR_NOERROR) {
        m_device = nullptr;
        return;
    }
    m_header = {};
    m_header.lpData = reinterpret_cast<LPSTR>(samples.data() + from);
    m_header.dwBufferLength = static_cast<DWORD>(whole - from);
    if (waveOutPrepareHeader(m_device, &m_header, sizeof m_header) == MMSYSERR_NOERROR)
        waveOutWrite(m_device, &m_header, sizeof m_header);
}

void CWaveOutput::Stop() {
    if (!m_device) return;
    waveOutReset(m_device);
    waveOutUnprepareHeader(m_device, &m_header, sizeof m_header);
    waveOutClose(m_device);
    m_device = nullptr;
}

}  // namespace viewer
