// Names under which the settings lie in the application profile.  Portable.
#pragma once
#include <cstddef>

#include "settings/camera_settings.h"

inline constexpr wchar_t kRegistryKey[] = L"\\Zel";
inline constexpr wchar_t kSettingsSection[] = L"Setting";

// An integer setting: its profile key, the field that holds it and its default.
struct IntegerSetting {
    const wchar_t* key;
    int32_t CameraSettings::*field;
    int32_t defaultValue;
};

inline constexpr wchar_t kKeySelfTimer[] = L"selftime";
inline constexpr wchar_t kKeyBusinessCard[] = L"business card";
inline constexpr wchar_t kKeySaveFolder[] = L"defaultfolder";
inline constexpr wchar_t kKeyPrefix[] = L"filename prefix";
inline constexpr wchar_t kKeyPictureNumber[] = L"jpgno";
inline constexpr wchar_t kKeyMovieNumber[] = L"avino";

// Loaded before the strings, in this order.
inline constexpr IntegerSetting kChoiceSettings[] = {
    {L"awb", &CameraSettings::awb, 0},
    {L"color", &CameraSettings::color, 0},
    {L"imagequality", &CameraSettings::imageQuality, 1},
    {L"resolution", &CameraSettings::resolution, 1},
    {L"ae metering", &CameraSettings::aeMetering, 1},
    {L"aviresolution", &CameraSettings::aviResolution, 1},
    {L"recordwithaudio", &CameraSettings::recordWithAudio, 1},
    {L"actionmode", &CameraSettings::actionMode, 1},
    {L"camera sound", &CameraSettings::cameraSound, 1},
    {L"instant review", &CameraSettings::instantReview, 1},
    {kKeySelfTimer, &CameraSettings::selfTimer, 0},
    {kKeyBusinessCard, &CameraSettings::businessCard, 0},
};

// Loaded after the strings, in this order.
inline constexpr IntegerSetting kCounterSettings[] = {
    {kKeyPictureNumber, &CameraSettings::jpgNo, 1},
    {kKeyMovieNumber, &CameraSettings::aviNo, 1},
    {L"brightness", &CameraSettings::brightness, 50},
};
