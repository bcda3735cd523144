#include "handheld/sio/driver/card_options.h"

#include "handheld/common/settings.h"

namespace sio {

CardOptions readCardOptions() {
    std::wstring camera = handheld::TextSetting(L"HANDHELD_CAMERA");
    if (camera.empty()) camera = L"scene";
    return {camera, handheld::NumberSetting(L"HANDHELD_FPS", 15, 1, 1000),
            handheld::PathSetting(L"HANDHELD_LOG"), handheld::PathSetting(L"HANDHELD_CARD")};
}

bool isSlotEmpty(const CardOptions& options) {
    return options.camera == L"none";
}

}  // namespace sio
