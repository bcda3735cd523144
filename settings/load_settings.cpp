#include "settings/load_settings.h"

#include "settings/picture_folder.h"
#include "settings/settings_keys.h"

namespace {

template <size_t count>
void LoadIntegers(CameraSettings& settings, const Profile& profile, const IntegerSetting (&table)[count]) {
    for (const IntegerSetting& row : table)
        settings.*row.field = ReadProfileInt(profile, kSettingsSection, row.key, row.defaultValue);
}

}  // namespace

void LoadSettings(CameraSettings& settings, Profile& profile) {
    EnsurePictureFolder();
    profile.key = kRegistryKey;
    LoadIntegers(settings, profile, kChoiceSettings);
    // Every run saves into the default folder first: the stored one is read and put aside, and takes effect
    // only through the file page.  Who moved the folder sees it after a restart.  (SettingsStore.StoredFolderIsSetAside)
    settings.saveFolder = ReadProfileText(profile, kSettingsSection, kKeySaveFolder, kDefaultFolder);
    settings.saveFolder = kDefaultFolder;
    settings.filenamePrefix = ReadProfileText(profile, kSettingsSection, kKeyPrefix, kDefaultPrefix);
    LoadIntegers(settings, profile, kCounterSettings);
}
