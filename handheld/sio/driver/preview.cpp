#include "handheld/sio/driver/preview.h"

#include <algorithm>

#include "device/control_codes.h"

namespace sio {
namespace {

using namespace std::chrono_literals;

// An announcement not answered for this long got lost with the window's queue, and is made anew.
constexpr auto kLostAfter = 500ms;

// How often the control file is looked at when nothing else happens.
constexpr auto kHealthInterval = 50ms;

// Waits end up to this much early; going back to sleep for the rest would only spin.
constexpr auto kTimerStep = 1ms;

}  // namespace

CPreview::CPreview(CCamera& camera, CHealth& health, uint32_t framesPerSecond)
    : m_camera(camera),
      m_health(health),
      m_period(std::chrono::duration_cast<Clock::duration>(1s) / framesPerSecond),
      m_thread([this] { run(); }) {}

CPreview::~CPreview() {
    {
        std::lock_guard guard(m_lock);
        m_ending = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void CPreview::start(HWND window, const PreviewMode& mode) {
    {
        std::lock_guard guard(m_lock);
        ++m_session;
        m_streaming = true;
        m_window = window;
        m_mode = mode;
        m_due = Clock::now();
        m_unread = false;
        m_frame.clear();
    }
    m_changed.notify_one();
}

void CPreview::stop() {
    std::lock_guard guard(m_lock);
    stopStreaming();
}

void CPreview::stopStreaming() {
    ++m_session;
    m_streaming = false;
    m_frame.clear();
}

uint32_t CPreview::read(uint8_t* out) {
    uint32_t length;
    {
        std::lock_guard guard(m_lock);
        std::copy(m_frame.begin(), m_frame.end(), out);
        length = static_cast<uint32_t>(m_frame.size());
        m_unread = false;
    }
    m_changed.notify_one();
    return length;
}

bool CPreview::isDue(Clock::time_point now) const {
    const auto reached = now + kTimerStep;
    return m_streaming && reached >= m_due && (!m_unread || reached >= m_announced + kLostAfter);
}

void CPreview::run() {
    Lock lock(m_lock);
    while (!m_ending) {
        // The file may be slow; whoever reads a frame meanwhile must not wait for it.
        lock.unlock();
        const Faults faults = m_health.check();
        lock.lock();
        if (faults & kUnplugged) stopStreaming();
        const bool silent = faults & kSilent;
        if (m_ending) return;
        if (!silent && isDue(Clock::now())) {
            announceFrame(lock);
        } else {
            sleep(lock, silent);
        }
    }
}

void CPreview::sleep(Lock& lock, bool silent) {
    const bool willAnnounce = m_streaming && !silent;
    if (!willAnnounce && !m_health.isWatching()) {
        m_changed.wait(lock);
        return;
    }
    auto until = Clock::time_point::max();
    if (willAnnounce) until = m_unread ? std::max(m_due, m_announced + kLostAfter) : m_due;
    if (m_health.isWatching()) until = std::min(until, Clock::now() + kHealthInterval);
    m_changed.wait_until(lock, until);
}

void CPreview::announceFrame(Lock& lock) {
    const uint32_t session = m_session;
    const PreviewMode mode = m_mode;
    lock.unlock();
    m_camera.take(mode.view, m_picture);
    m_encoder.encode(m_picture, mode.sampling, m_scan);
    lock.lock();
    if (session != m_session || !m_streaming) return;

    m_frame.swap(m_scan);
    const auto now = Clock::now();
    // Frames keep to the rate on average; time lost is not made up for.
    m_due = std::max(m_due + m_period, now);
    if (PostMessageW(m_window, kMsgFrameReady, 0, 0)) {
        m_unread = true;
        m_announced = now;
    } else if (!IsWindow(m_window)) {
        stopStreaming();
    }
}

}  // namespace sio
