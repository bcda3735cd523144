// Pictures out of files, by the desktop's own decoders.
#pragma once
#include <wincodec.h>
#include <windows.h>

#include <vector>

#include "handheld/korvoimgview/pixels.h"

namespace viewer {

enum class DecodeResult { ok, damaged, tooLarge };

class CPictureDecoder {
  public:
    CPictureDecoder();
    ~CPictureDecoder();
    CPictureDecoder(const CPictureDecoder&) = delete;
    CPictureDecoder& operator=(const CPictureDecoder&) = delete;

    // Decodes a JPEG, PNG or BMP file of any size up to 64 million pixels; what is transparent becomes black.
    // The pixels are changed only when the result is ok.
    DecodeResult Decode(const std::vector<uint8_t>& file, Pixels& pixels) const;

  private:
    IWICImagingFactory* m_factory = nullptr;
};

}  // namespace viewer
