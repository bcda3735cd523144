// Every choice that survives a restart, in one record that all readers use directly.
// Portable.  Integer fields hold whatever the profile held: the store checks no range.
#pragma once
#include <cstdint>
#include <string>

inline constexpr wchar_t kDefaultFolder[] = L"\\My Documents\\My Pictures\\";
inline constexpr wchar_t kDefaultPrefix[] = L"snap";

struct CameraSettings {
    int32_t awb = 0;              // white balance: 0 auto, 1 daylight, 2 fluorescent, 3 tungsten, 4 off
    int32_t color = 0;            // 0 colour, 1 black and white, 2 sepia
    int32_t imageQuality = 1;     // 0 good, 1 better, 2 best
    int32_t resolution = 1;       // stills: 0 1280x1024, 1 1280x960, 2 640x480, 3 320x240
    int32_t aeMetering = 1;       // 0 matrix, 1 centre-weighted
    int32_t aviResolution = 1;    // movies and live view: 0 320x240, 1 160x120
    int32_t recordWithAudio = 1;  // 0 silent movies; gates the zoom and shutter sounds too
    int32_t actionMode = 1;       // kept, acted on by nobody
    int32_t cameraSound = 1;      // 1 asks the card for its shutter sound
    int32_t instantReview = 1;    // 0 off, else the review lasts this many times two seconds
    int32_t selfTimer = 0;        // 0 off, 1 short, else long
    int32_t businessCard = 0;     // 1 shows the business-card framing aid
    std::wstring saveFolder = kDefaultFolder;      // ends in a backslash
    std::wstring filenamePrefix = kDefaultPrefix;  // before the four digits of a picture's name
    int32_t jpgNo = 1;            // number of the next picture
    int32_t aviNo = 1;            // number of the next movie
    int32_t brightness = 50;      // kept, acted on by nobody
    int32_t sessionResolution = 0;  // still size chosen while zoomed in; lives for the run only
};
