#include <gtest/gtest.h>

#include "fakes/picture_folder_fake.h"
#include "fakes/profile_fake.h"
#include "settings/counters.h"
#include "settings/load_settings.h"
#include "settings/settings_keys.h"

namespace {

class SettingsStore : public testing::Test {
  protected:
    void SetUp() override {
        ClearFakeProfile();
        profile.key = kRegistryKey;
    }
    CameraSettings Load() {
        CameraSettings settings;
        LoadSettings(settings, profile);
        return settings;
    }
    Profile profile;
};

TEST_F(SettingsStore, AnEmptyProfileGivesTheDefaults) {
    const CameraSettings settings = Load();
    const int32_t expected[] = {0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 0, 0, 1, 1, 50};
    const int32_t loaded[] = {settings.awb, settings.color, settings.imageQuality, settings.resolution,
                              settings.aeMetering, settings.aviResolution, settings.recordWithAudio,
                              settings.actionMode, settings.cameraSound, settings.instantReview, settings.selfTimer,
                              settings.businessCard, settings.jpgNo, settings.aviNo, settings.brightness};
    for (size_t i = 0; i < std::size(expected); ++i) EXPECT_EQ(loaded[i], expected[i]) << i;
    EXPECT_EQ(settings.saveFolder, L"\\My Documents\\My Pictures\\");
    EXPECT_EQ(settings.filenamePrefix, L"snap");
}

TEST_F(SettingsStore, EveryIntegerComesFromItsOwnKey) {
    const struct {
        const wchar_t* key;
        int32_t CameraSettings::*field;
    } rows[] = {{L"awb", &CameraSettings::awb}, {L"color", &CameraSettings::color},
                {L"imagequality", &CameraSettings::imageQuality}, {L"resolution", &CameraSettings::resolution},
                {L"ae metering", &CameraSettings::aeMetering}, {L"aviresolution", &CameraSettings::aviResolution},
                {L"recordwithaudio", &CameraSettings::recordWithAudio}, {L"actionmode", &CameraSettings::actionMode},
                {L"camera sound", &CameraSettings::cameraSound}, {L"instant review", &CameraSettings::instantReview},
                {L"selftime", &CameraSettings::selfTimer}, {L"business card", &CameraSettings::businessCard},
                {L"jpgno", &CameraSettings::jpgNo}, {L"avino", &CameraSettings::aviNo},
                {L"brightness", &CameraSettings::brightness}};
    int32_t value = 1000;
    for (const auto& row : rows) WriteProfileInt(profile, L"Setting", row.key, value++);
    const CameraSettings settings = Load();
    value = 1000;
    for (const auto& row : rows) EXPECT_EQ(settings.*row.field, value++);
}

TEST_F(SettingsStore, ValuesAreTakenUnchecked) {
    WriteProfileInt(profile, L"Setting", L"jpgno", 12345);
    WriteProfileInt(profile, L"Setting", L"awb", 77);
    WriteProfileInt(profile, L"Setting", L"aviresolution", -9);
    const CameraSettings settings = Load();
    EXPECT_EQ(settings.jpgNo, 12345);
    EXPECT_EQ(settings.awb, 77);
    EXPECT_EQ(settings.aviResolution, -9);
}

TEST_F(SettingsStore, StoredFolderIsSetAside) {
    WriteProfileText(profile, L"Setting", L"defaultfolder", L"\\Elsewhere\\");
    EXPECT_EQ(Load().saveFolder, kDefaultFolder);
}

TEST_F(SettingsStore, ThePrefixIsTheStoredOne) {
    WriteProfileText(profile, L"Setting", L"filename prefix", L"trip");
    EXPECT_EQ(Load().filenamePrefix, L"trip");
}

TEST_F(SettingsStore, LoadingEnsuresTheFolderOnceAndGivesTheKey) {
    const int before = g_pictureFolderEnsured;
    profile.key = L"";
    Load();
    EXPECT_EQ(g_pictureFolderEnsured, before + 1);
    EXPECT_EQ(profile.key, L"\\Zel");
}

TEST_F(SettingsStore, CountersAreStoredAtOnce) {
    CameraSettings settings;
    StorePictureNumber(settings, profile, 42);
    StoreMovieNumber(settings, profile, 43);
    EXPECT_EQ(settings.jpgNo, 42);
    EXPECT_EQ(settings.aviNo, 43);
    EXPECT_EQ(ReadProfileInt(profile, L"Setting", L"jpgno", 0), 42);
    EXPECT_EQ(ReadProfileInt(profile, L"Setting", L"avino", 0), 43);
}

TEST_F(SettingsStore, VideoModeSwitchesBothAidsOffAtOnce) {
    CameraSettings settings;
    settings.selfTimer = 2;
    settings.businessCard = 1;
    SwitchOffStillAids(settings, profile);
    EXPECT_EQ(settings.selfTimer, 0);
    EXPECT_EQ(settings.businessCard, 0);
    EXPECT_EQ(ReadProfileInt(profile, L"Setting", L"selftime", -1), 0);
    EXPECT_EQ(ReadProfileInt(profile, L"Setting", L"business card", -1), 0);
}

}  // namespace
