#include "settings/counters.h"

#include "settings/settings_keys.h"

void StorePictureNumber(CameraSettings& settings, const Profile& profile, int32_t number) {
    settings.jpgNo = number;
    WriteProfileInt(profile, kSettingsSection, kKeyPictureNumber, number);
}

void StoreMovieNumber(CameraSettings& settings, const Profile& profile, int32_t number) {
    settings.aviNo = number;
    WriteProfileInt(profile, kSettingsSection, kKeyMovieNumber, number);
}

void SwitchOffStillAids(CameraSettings& settings, const Profile& profile) {
    settings.selfTimer = 0;
    settings.businessCard = 0;
    WriteProfileInt(profile, kSettingsSection, kKeySelfTimer, 0);
    WriteProfileInt(profile, kSettingsSection, kKeyBusinessCard, 0);
}
