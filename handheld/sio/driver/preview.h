// The live view: makes frames at a steady rate on a thread of its own and announces them to a window.
#pragma once
#include <windows.h>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

#include "handheld/sio/card/modes.h"
#include "handheld/sio/driver/camera.h"
#include "handheld/sio/driver/health.h"
#include "handheld/sio/encoder/preview_encoder.h"

namespace sio {

class CPreview {
  public:
    CPreview(CCamera& camera, CHealth& health, uint32_t framesPerSecond);
    ~CPreview();
    CPreview(const CPreview&) = delete;
    CPreview& operator=(const CPreview&) = delete;

    // Announces frames of a mode to a window by posting kMsgFrameReady, one unread at a time.
    void start(HWND window, const PreviewMode& mode);

    // No frame is announced any more once this returns, and none can be read until the next start.
    void stop();

    // Copies the newest frame's scan data, at most kMaxScanBytes, and allows the next one to be announced.
    // Returns its length, 0 when there is none yet.
    uint32_t read(uint8_t* out);

  private:
    using Clock = std::chrono::steady_clock;
    using Lock = std::unique_lock<std::mutex>;

    void run();
    void stopStreaming();
    bool isDue(Clock::time_point now) const;
    void announceFrame(Lock& lock);
    void sleep(Lock& lock, bool silent);

    CCamera& m_camera;
    CHealth& m_health;
    const Clock::duration m_period;

    std::mutex m_lock;
    std::condition_variable m_changed;
    // Under the lock:
    bool m_ending = false;
    bool m_streaming = false;
    uint32_t m_session =
        0;  // counts starts and stops, so that a frame begun before one is not shown after it
    HWND m_window = nullptr;
    PreviewMode m_mode{};
    Clock::time_point m_due;        // of the next frame
    bool m_unread = false;          // a frame was announced and not yet read
    Clock::time_point m_announced;  // when that was
    std::vector<uint8_t> m_frame;   // newest scan data

    // Used by the thread only, kept from frame to frame:
    Picture m_picture;
    CPreviewEncoder m_encoder;
    std::vector<uint8_t> m_scan;

    std::thread m_thread;  // last: it uses all the others
};

}  // namespace sio
