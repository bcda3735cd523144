// One static area in which a JPEG header and the scan data of a frame meet.  Portable.
#pragma once
#include <cstddef>
#include <cstdint>

#include "device/control_codes.h"
#include "device/preview_headers.h"

struct FrameBuffer {
    uint8_t header[kPreviewHeaderBytes];  // template of the current preview mode
    uint8_t scan[kMaxScanBytes];          // written by the driver
};
static_assert(offsetof(FrameBuffer, scan) == 170 && sizeof(FrameBuffer) == 170 + 76209);

// A returned length is used only inside these bounds.
constexpr bool IsFrameLength(uint32_t length) { return length > 0 && length <= kMaxScanBytes; }
