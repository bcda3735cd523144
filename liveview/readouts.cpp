#include "liveview/readouts.h"

namespace {

constexpr const wchar_t* kSizes[] = {L"1280x1024", L"1280x960", L"640x480", L"320x240"};

const wchar_t* SizeText(int32_t resolution) {
    return resolution >= 0 && resolution < 4 ? kSizes[resolution] : L"";
}

}  // namespace

const wchar_t* ResolutionText(const CameraSettings& settings, const ScreenState& screen) {
    if (screen.mode == CaptureMode::video) return settings.aviResolution == 1 ? L"160x120" : kSizes[3];
    if (screen.zoom == 0) return SizeText(settings.resolution);
    // At zoom 1 the card offers two sizes; every other choice of the run stands for the larger of them.
    return screen.zoom == 1 && settings.sessionResolution != 3 ? kSizes[2] : kSizes[3];
}
