#include "capture/still_rules.h"

uint8_t StillMode(int32_t resolution, const ScreenState& screen) {
    if (screen.zoom == 2) return 17;
    if (screen.zoom == 1 && screen.zoomedSizeSelector == 2) return 7;
    if (screen.zoom == 1 && screen.zoomedSizeSelector == 3) return 8;
    return resolution == 3 ? 4 : static_cast<uint8_t>(resolution);
}

bool FillStillRequest(StillRequest& request, const CameraSettings& settings, const ScreenState& screen,
                      int32_t resolution, const std::wstring& path, uint32_t module) {
    if (path.size() >= kStillPathCharacters) return false;
    request = {};
    request.mode = StillMode(resolution, screen);
    request.quality = static_cast<uint8_t>(settings.imageQuality);
    for (size_t i = 0; i < path.size(); ++i) request.path[i] = static_cast<char16_t>(path[i]);
    // The sound follows the movie-sound setting as well as the camera's: silent movies mean silent stills.
    // Who switched movie sound off hears no shutter.  (StillRules.SoundNeedsMovieSoundToo)
    const bool sound = settings.recordWithAudio != 0 && settings.cameraSound != 0;
    request.soundModule = sound ? module : 0;
    return true;
}
