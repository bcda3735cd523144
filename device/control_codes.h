// The camera card's driver interface: control codes, request records and posted messages.
// Portable: shared by the program, its tests and the simulated card.
#pragma once
#include <cstddef>
#include <cstdint>

// Control codes of the stream driver "SIO1:".
inline constexpr uint32_t IOCTL_CAMERA_CAPTURE_STILL = 0x80000007;      // in: StillRequest, 220 bytes
inline constexpr uint32_t IOCTL_CAMERA_START_PREVIEW = 0x8000000F;      // in: address of the preview window variable; input size = mode code
inline constexpr uint32_t IOCTL_CAMERA_READ_FRAME = 0x80000013;         // in: 4 feedback bytes; out: scan data, output size 0
inline constexpr uint32_t IOCTL_CAMERA_STOP_PREVIEW = 0x80000017;       // no buffers
inline constexpr uint32_t IOCTL_CAMERA_SET_IMAGE_PARAMS = 0x8000001B;   // in: ImageParameters, 16 bytes
inline constexpr uint32_t IOCTL_CAMERA_GET_VERSION = 0x80000023;        // out: 40-character wide text, output size 0
inline constexpr uint32_t IOCTL_CAMERA_SET_EVENT_WINDOW = 0x80000027;   // in: address of the event window variable; input size 0
inline constexpr uint32_t IOCTL_CAMERA_SHUTDOWN = 0x8000002B;           // no buffers

// Posted by the driver to the preview window for each frame that is ready (WM_USER + 10).
inline constexpr uint32_t kMsgFrameReady = 0x0400 + 10;

// Most scan-data bytes the driver may return for one frame; a longer frame is dropped.
inline constexpr uint32_t kMaxScanBytes = 76209;

// Characters of the version text, its terminator included.
inline constexpr uint32_t kVersionCharacters = 40;

struct ImageParameters {
    uint32_t whiteBalance;  // 0..4, setting "awb"
    uint32_t color;         // 0..2, setting "color"
    uint32_t quality;       // 0..2, setting "imagequality"
    uint32_t metering;      // 0..1, setting "ae metering"
};
static_assert(sizeof(ImageParameters) == 16);

inline constexpr uint32_t kStillPathCharacters = 101;  // 100 characters and the terminator

#pragma pack(push, 1)
struct StillRequest {
    uint8_t mode;                         // 0..4, 7, 8, 17
    uint8_t quality;                      // low byte of the setting "imagequality"
    char16_t path[kStillPathCharacters];  // full path of the JPEG file, UTF-16, zero-terminated
    uint32_t reserved[3];                 // 0
    uint32_t soundModule;                 // module that holds the shutter sound, 0 = silent
};
#pragma pack(pop)
static_assert(sizeof(StillRequest) == 220);
static_assert(offsetof(StillRequest, path) == 2);
static_assert(offsetof(StillRequest, reserved) == 204);
static_assert(offsetof(StillRequest, soundModule) == 216);
