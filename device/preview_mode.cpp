#include "device/preview_mode.h"

#include <cstring>

void SelectPreviewHeader(FrameBuffer& frame, int32_t& scaleCode, int32_t videoResolution, uint32_t zoom) {
    if (videoResolution != 0 && videoResolution != 1) return;
    const int headerTemplate = videoResolution == 1 ? 3 : zoom == 0 ? 1 : 2;
    std::memcpy(frame.header, FindPreviewHeader(headerTemplate)->data(), kPreviewHeaderBytes);
    scaleCode = videoResolution == 1 ? kScaleSmall : kScaleLarge;
}
