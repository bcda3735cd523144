// Lens, sensor and image processor: takes pictures with the parameters in force. Any thread may use it.
#pragma once
#include <memory>
#include <mutex>

#include "device/control_codes.h"
#include "handheld/sio/driver/picture_source.h"

namespace sio {

class CCamera {
  public:
    explicit CCamera(std::unique_ptr<CPictureSource> source) : m_source(std::move(source)) {}

    void setParameters(const ImageParameters& parameters);
    void take(const View& view, Picture& into);

  private:
    std::mutex m_lock;
    std::unique_ptr<CPictureSource> m_source;
    ImageParameters m_parameters{};
};

}  // namespace sio
