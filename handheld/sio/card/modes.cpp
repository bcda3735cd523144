#include "handheld/sio/card/modes.h"

namespace sio {
namespace {

constexpr PreviewMode kPreviewModes[] = {
    {4, {320, 240, 0}, k444}, {9, {320, 240, 1}, k420},  {17, {320, 240, 2}, k420},
    {6, {160, 120, 0}, k444}, {20, {160, 120, 1}, k444}, {21, {160, 120, 2}, k444},
};

// The sizes are those with which the program estimates how many pictures still fit.
constexpr StillMode kStillModes[] = {
    {0, {1280, 1024, 0}, 80}, {1, {1280, 960, 0}, 75}, {2, {640, 480, 0}, 50},  {4, {320, 240, 0}, 16},
    {7, {640, 480, 1}, 45},   {8, {320, 240, 1}, 16},  {17, {320, 240, 2}, 16},
};

template <class Mode, size_t count>
const Mode* find(const Mode (&modes)[count], uint32_t code) {
    for (const Mode& mode : modes) {
        if (mode.code == code) return &mode;
    }
    return nullptr;
}

}  // namespace

const PreviewMode* findPreviewMode(uint32_t code) {
    return find(kPreviewModes, code);
}
const StillMode* findStillMode(uint32_t code) {
    return find(kStillModes, code);
}

}  // namespace sio
