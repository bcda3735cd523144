// Where the tower's two clocks are: the still part draws their faces, the moving part hands and digits.
#pragma once
#include "handheld/sio/picture/path.h"

namespace sio {

inline constexpr Point kDial = {0, -66};
inline constexpr float kDialRadius = 48;

struct Box {
    float left, top, right, bottom;
};
inline constexpr Box kBoard = {-62, 2, 62, 36};

}  // namespace sio
