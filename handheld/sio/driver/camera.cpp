#include "handheld/sio/driver/camera.h"

#include <windows.h>

#include "handheld/sio/card/image_effects.h"

namespace sio {
namespace {

uint32_t timeOfDay() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return ((now.wHour * 60u + now.wMinute) * 60 + now.wSecond) * 1000 + now.wMilliseconds;
}

}  // namespace

void CCamera::setParameters(const ImageParameters& parameters) {
    std::lock_guard guard(m_lock);
    m_parameters = parameters;
}

void CCamera::take(const View& view, Picture& into) {
    std::lock_guard guard(m_lock);
    m_source->take(view, timeOfDay(), into);
    applyImageParameters(m_parameters, into);
}

}  // namespace sio
