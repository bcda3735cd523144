// Storing what the camera screen itself changes.  Portable; each call writes its own key at once.
#pragma once
#include "framework/profile.h"
#include "settings/camera_settings.h"

void StorePictureNumber(CameraSettings& settings, const Profile& profile, int32_t number);
void StoreMovieNumber(CameraSettings& settings, const Profile& profile, int32_t number);

// Movies know neither the self-timer nor the framing aid: both go off, in the record and in the profile.
void SwitchOffStillAids(CameraSettings& settings, const Profile& profile);
