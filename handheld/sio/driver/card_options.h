// How the card is set up, from the environment.
#pragma once
#include <cstdint>
#include <string>

namespace sio {

struct CardOptions {
    std::wstring camera;       // HANDHELD_CAMERA: "scene", "folder:PATH" or "none"
    uint32_t framesPerSecond;  // HANDHELD_FPS
    std::wstring logPath;      // HANDHELD_LOG; empty: no log
    std::wstring controlPath;  // HANDHELD_CARD; empty: always healthy
};

CardOptions readCardOptions();

// Whether the options leave the card slot empty.
bool isSlotEmpty(const CardOptions& options);

}  // namespace sio
