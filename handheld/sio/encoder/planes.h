// A picture as JPEG wants it: luma and two chroma planes, the chroma thinned out.
#pragma once
#include <array>
#include <cstdint>
#include <vector>

#include "handheld/sio/picture/picture.h"

namespace sio {

inline constexpr int kBlock = 8;  // samples along a transform block's side

// How many luma samples stand for one chroma sample, across and down.
struct Sampling {
    int across, down;  // 1 or 2
};
inline constexpr Sampling k444{1, 1}, k422{2, 1}, k420{2, 2};

struct Plane {
    int width = 0;  // samples, whole coding units
    int height = 0;
    std::vector<uint8_t> samples;
};

struct Planes {
    Sampling sampling{};
    int unitsAcross = 0;  // coding units (MCUs), the last ones padded by repeating the picture's edge
    int unitsDown = 0;
    std::array<Plane, 3> components;  // Y, Cb, Cr of the JFIF colour space

    void split(const Picture& picture, Sampling how);
};

}  // namespace sio
