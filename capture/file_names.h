// Names and numbers of picture and movie files.  Portable.
#pragma once
#include <cstdint>
#include <string>

#include "settings/camera_settings.h"

// Folder, prefix, the number with at least four digits, ".jpg".
std::wstring PicturePath(const CameraSettings& settings, int32_t number);

// Folder, "m", the number with at least four digits, ".avi".
std::wstring MoviePath(const CameraSettings& settings, int32_t number);

// The number after a saved file: 1 follows 9999 and everything above.
constexpr int32_t NextNumber(int32_t number) { return number >= 9999 ? 1 : number + 1; }

// The number of the picture before: after 1 comes 0, which names no picture taken.
constexpr int32_t LastNumber(int32_t number) { return number == INT32_MIN ? number : number - 1; }

// The number after a deleted picture; never below 0.
constexpr int32_t PreviousNumber(int32_t number) { return number <= 0 ? 0 : number - 1; }
