// The card in its slot: opens and control calls, from any thread.
#pragma once
#include <windows.h>

#include <memory>
#include <mutex>
#include <set>

#include "handheld/sio/card/control_log.h"
#include "handheld/sio/driver/camera.h"
#include "handheld/sio/driver/card_options.h"
#include "handheld/sio/driver/health.h"
#include "handheld/sio/driver/log_file.h"
#include "handheld/sio/driver/preview.h"

namespace sio {

class CCard {
  public:
    explicit CCard(const CardOptions& options);

    // Id of a new open, 0 on failure. Several may exist; all share one camera.
    DWORD open(DWORD access, DWORD share);
    // The last close ends the live view.
    bool close(DWORD id);
    // `returned` gets the number of bytes written to the output, or claimed to be; it may be null. Failures
    // set the last error.
    bool control(DWORD id, const ControlCall& call, DWORD* returned);

    // Whether the card is in its slot; pulls it out or puts it back, until the control file changes.
    bool isIn() { return !(m_health.check() & kUnplugged); }
    void move(bool in);

  private:
    struct Operation;
    static const Operation kOperations[];

    bool perform(DWORD id, const ControlCall& call, DWORD& returned);
    bool captureStill(const ControlCall& call, DWORD& returned);
    bool startPreview(const ControlCall& call, DWORD& returned);
    bool readFrame(const ControlCall& call, DWORD& returned);
    bool stopPreview(const ControlCall& call, DWORD& returned);
    bool setImageParameters(const ControlCall& call, DWORD& returned);
    bool getVersion(const ControlCall& call, DWORD& returned);
    bool setEventWindow(const ControlCall& call, DWORD& returned);
    bool shutdown(const ControlCall& call, DWORD& returned);

    const uint32_t m_framesPerSecond;
    CLogFile m_log;
    CHealth m_health;
    CCamera m_camera;

    std::mutex m_lock;
    std::set<DWORD> m_opens;
    DWORD m_lastId = 0;
    bool m_released = false;              // shut down since the last open
    std::unique_ptr<CPreview> m_preview;  // while there are opens
};

}  // namespace sio
