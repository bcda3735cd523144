#include "unit/viewer/camera_frame.h"

#include "device/preview_headers.h"
#include "handheld/sio/encoder/preview_encoder.h"

namespace viewer {

std::string CameraFrame(int header, sio::Rgb colour) {
    sio::Picture picture;
    picture.resize(header == 3 ? 160 : 320, header == 3 ? 120 : 240);
    for (sio::Rgb& pixel : picture.pixels) pixel = colour;
    std::vector<uint8_t> scan;
    sio::CPreviewEncoder().encode(picture, header == 2 ? sio::k420 : sio::k444, scan);
    const PreviewHeader& bytes = *FindPreviewHeader(header);
    return std::string(bytes.begin(), bytes.end()) + std::string(scan.begin(), scan.end());
}

}  // namespace viewer
