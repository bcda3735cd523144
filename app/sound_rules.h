// Which of the screen's own sounds may be heard.  Portable.
#pragma once
#include "settings/camera_settings.h"

// Follows the movie-sound setting, not the camera's own: silent movies mean a silent screen.
// Who switched off only the camera sounds still hears the zoom.  (ZoomSound.FollowsMovieSound)
inline bool IsZoomAudible(const CameraSettings& settings) { return settings.recordWithAudio != 0; }
