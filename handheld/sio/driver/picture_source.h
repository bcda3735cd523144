// Where the card's pictures come from.
#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "handheld/sio/picture/picture.h"
#include "handheld/sio/picture/view.h"

namespace sio {

class CPictureSource {
  public:
    virtual ~CPictureSource() = default;
    // The picture at a time of day (milliseconds since midnight), before any image processing.
    virtual void take(const View& view, uint32_t timeOfDay, Picture& into) = 0;
};

// The source that a value of HANDHELD_CAMERA names; a test card that says so when there is no such source.
std::unique_ptr<CPictureSource> makePictureSource(const std::wstring& camera);

}  // namespace sio
