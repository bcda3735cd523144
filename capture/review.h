// The picture under instant review.
#pragma once
#include "app/screen_state.h"
#include "framework/profile.h"
#include "settings/camera_settings.h"

// Takes the counter back by one, stores it and deletes the file of that number.
void DeleteLastPicture(CameraSettings& settings, const Profile& profile, ScreenState& screen);
