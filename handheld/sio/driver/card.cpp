#include "handheld/sio/driver/card.h"

#include <cstring>

#include "device/control_codes.h"
#include "handheld/sio/card/garbage.h"
#include "handheld/sio/card/still_request.h"
#include "handheld/sio/driver/still.h"

namespace sio {
namespace {

constexpr wchar_t kVersion[] = L"1.2.0";
static_assert(sizeof kVersion / sizeof kVersion[0] <= kVersionCharacters);

bool fail(DWORD error) {
    SetLastError(error);
    return false;
}

}  // namespace

struct CCard::Operation {
    uint32_t code;
    bool needsCamera;  // refused after a shutdown
    bool (CCard::*perform)(const ControlCall&, DWORD& returned);
};

constexpr CCard::Operation CCard::kOperations[] = {
    {IOCTL_CAMERA_CAPTURE_STILL, true, &CCard::captureStill},
    {IOCTL_CAMERA_START_PREVIEW, true, &CCard::startPreview},
    {IOCTL_CAMERA_READ_FRAME, true, &CCard::readFrame},
    {IOCTL_CAMERA_STOP_PREVIEW, false, &CCard::stopPreview},
    {IOCTL_CAMERA_SET_IMAGE_PARAMS, false, &CCard::setImageParameters},
    {IOCTL_CAMERA_GET_VERSION, false, &CCard::getVersion},
    {IOCTL_CAMERA_SET_EVENT_WINDOW, false, &CCard::setEventWindow},
    {IOCTL_CAMERA_SHUTDOWN, false, &CCard::shutdown},
};

CCard::CCard(const CardOptions& options)
    : m_framesPerSecond(options.framesPerSecond),
      m_log(options.logPath),
      m_health(options.controlPath, m_log),
      m_camera(makePictureSource(options.camera)) {}

DWORD CCard::open(DWORD access, DWORD share) {
    std::lock_guard guard(m_lock);
    const bool present = !(m_health.check() & kUnplugged);
    m_log.write(openLine(access, share, present));
    if (!present) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return 0;
    }
    if (!m_preview) m_preview = std::make_unique<CPreview>(m_camera, m_health, m_framesPerSecond);
    m_released = false;
    m_opens.insert(++m_lastId);
    return m_lastId;
}

bool CCard::close(DWORD id) {
    std::lock_guard guard(m_lock);
    const bool known = m_opens.erase(id) != 0;
    if (m_opens.empty()) m_preview.reset();
    m_log.write(closeLine(known));
    return known || fail(ERROR_INVALID_HANDLE);
}

bool CCard::control(DWORD id, const ControlCall& call, DWORD* returned) {
    std::lock_guard guard(m_lock);
    DWORD count = 0;
    const bool succeeded = perform(id, call, count);
    if (returned) *returned = count;
    m_log.write(controlLine(call, succeeded));
    return succeeded;
}

// The live view ends with the card's power, however soon that is back.
void CCard::move(bool in) {
    m_health.set(kUnplugged, !in);
    std::lock_guard guard(m_lock);
    if (!in && m_preview) m_preview->stop();
}

bool CCard::perform(DWORD id, const ControlCall& call, DWORD& returned) {
    if (m_opens.count(id) == 0) return fail(ERROR_INVALID_HANDLE);
    if (m_health.check() & kUnplugged) {
        m_preview->stop();
        return fail(ERROR_DEVICE_NOT_CONNECTED);
    }
    for (const Operation& operation : kOperations) {
        if (operation.code != call.code) continue;
        if (operation.needsCamera && m_released) return fail(ERROR_NOT_READY);
        return (this->*operation.perform)(call, returned);
    }
    return fail(ERROR_INVALID_FUNCTION);
}

bool CCard::captureStill(const ControlCall& call, DWORD&) {
    StillRequest request;
    if (!readStillRequest(call.in, call.inSize, request)) return fail(ERROR_INVALID_PARAMETER);
    if (m_health.check() & kRefuseStill) return fail(ERROR_WRITE_FAULT);
    return takeStill(m_camera, request);
}

// The mode travels in the input's size; the input itself is the variable that holds the window's handle.
bool CCard::startPreview(const ControlCall& call, DWORD&) {
    const PreviewMode* mode = findPreviewMode(call.inSize);
    if (!mode || !call.in) return fail(ERROR_INVALID_PARAMETER);
    HWND window;
    std::memcpy(&window, call.in, sizeof window);
    if (!IsWindow(window)) return fail(ERROR_INVALID_WINDOW_HANDLE);
    m_preview->start(window, *mode);
    return true;
}

// The caller gives an output size of 0 and room for kMaxScanBytes all the same.
bool CCard::readFrame(const ControlCall& call, DWORD& returned) {
    if (!call.out) return fail(ERROR_INVALID_PARAMETER);
    returned = m_preview->read(call.out);
    if (returned == 0) return fail(ERROR_NOT_READY);
    const Faults faults = m_health.check();
    if (faults & kGarbage) {
        static const std::vector<uint8_t> garbage = garbageScan();
        std::memcpy(call.out, garbage.data(), garbage.size());
        returned = static_cast<DWORD>(garbage.size());
    }
    // Only the count is wrong: the buffer behind it has no room for more.
    if (faults & kLong) returned = kMaxScanBytes + 1;
    if (faults & kShort) returned = 0;
    return true;
}

bool CCard::stopPreview(const ControlCall&, DWORD&) {
    m_preview->stop();
    return true;
}

bool CCard::setImageParameters(const ControlCall& call, DWORD&) {
    ImageParameters parameters;
    if (!call.in || call.inSize < sizeof parameters) return fail(ERROR_INVALID_PARAMETER);
    std::memcpy(&parameters, call.in, sizeof parameters);
    m_camera.setParameters(parameters);
    return true;
}

// The output size is 0 here too; there is room for kVersionCharacters.
bool CCard::getVersion(const ControlCall& call, DWORD& returned) {
    if (!call.out) return fail(ERROR_INVALID_PARAMETER);
    std::memcpy(call.out, kVersion, sizeof kVersion);
    returned = sizeof kVersion;
    return true;
}

// This card has no events of its own to tell of; it only checks that the variable is there.
bool CCard::setEventWindow(const ControlCall& call, DWORD&) {
    return call.in || fail(ERROR_INVALID_PARAMETER);
}

bool CCard::shutdown(const ControlCall&, DWORD&) {
    m_preview->stop();
    m_released = true;
    return true;
}

}  // namespace sio
