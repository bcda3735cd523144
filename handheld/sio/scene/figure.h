// Where the face of the person in the foreground is; the moving part closes the eyes now and then.
#pragma once
#include "handheld/sio/picture/path.h"

namespace sio {

inline constexpr Point kFace = {398, 96};
inline constexpr float kFaceRadiusX = 74, kFaceRadiusY = 94;
inline constexpr float kEyeOffsetX = 31, kEyeY = 84;
inline constexpr float kEyeRadiusX = 15, kEyeRadiusY = 9;

}  // namespace sio
