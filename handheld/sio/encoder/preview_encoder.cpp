#include "handheld/sio/encoder/preview_encoder.h"

#include "device/control_codes.h"
#include "handheld/sio/encoder/frame_steps.h"

namespace sio {

void CPreviewEncoder::encode(const Picture& picture, Sampling sampling, std::vector<uint8_t>& scan) {
    m_planes.split(picture, sampling);
    const auto write = [&](int lastCoefficient) {
        scan.clear();
        return writeScan(m_planes, frameSteps(), {kMaxScanBytes, lastCoefficient}, scan);
    };
    if (write(kCoefficients - 1)) return;
    // Means alone always fit: 20 bits at most for each of the 3600 blocks of the largest frame.
    int fits = 0, tooMany = kCoefficients - 1;
    while (tooMany - fits > 1) {
        const int middle = (fits + tooMany) / 2;
        (write(middle) ? fits : tooMany) = middle;
    }
    write(fits);
}

}  // namespace sio
