// Fills the settings record at start-up.
#pragma once
#include "framework/profile.h"
#include "settings/camera_settings.h"

// Creates "\My Documents\My Pictures" when it is missing, gives the profile its key and reads every field.
// Never fails: what the profile lacks takes its default, and a folder that cannot be made shows when saving.
void LoadSettings(CameraSettings& settings, Profile& profile);
