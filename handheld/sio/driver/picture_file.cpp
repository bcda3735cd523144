#include "handheld/sio/driver/picture_file.h"

#include <wincodec.h>
#include <windows.h>

#include <utility>

#include "handheld/common/com_reference.h"

namespace sio {
namespace {

constexpr UINT kLongestSide = 16384;
constexpr uint64_t kMostPixels = 40'000'000;

// Makes the codecs usable on whatever thread asks, for as long as it lives.
class CComSession {
  public:
    CComSession() : m_result(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}
    ~CComSession() {
        if (SUCCEEDED(m_result)) CoUninitialize();
    }
    CComSession(const CComSession&) = delete;
    CComSession& operator=(const CComSession&) = delete;

  private:
    const HRESULT m_result;  // a thread that has its own apartment already is fine too
};

bool copyPixels(IWICBitmapSource& source, Picture& into) {
    UINT width = 0, height = 0;
    if (FAILED(source.GetSize(&width, &height)) || width == 0 || height == 0 || width > kLongestSide ||
        height > kLongestSide || uint64_t{width} * height > kMostPixels) {
        return false;
    }
    into.resize(static_cast<int>(width), static_cast<int>(height));
    static_assert(sizeof(Rgb) == 3);
    const UINT stride = width * 3;
    if (FAILED(source.CopyPixels(nullptr, stride, stride * height,
                                 reinterpret_cast<BYTE*>(into.pixels.data())))) {
        return false;
    }
    for (Rgb& pixel : into.pixels) std::swap(pixel.r, pixel.b);
    return true;
}

}  // namespace

bool readPictureFile(const std::wstring& path, Picture& into) {
    const CComSession session;
    handheld::CComReference<IWICImagingFactory> factory;
    handheld::CComReference<IWICBitmapDecoder> decoder;
    handheld::CComReference<IWICBitmapFrameDecode> frame;
    handheld::CComReference<IWICBitmapSource> converted;
    return SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_IWICImagingFactory, reinterpret_cast<void**>(factory.Receive()))) &&
           SUCCEEDED(factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ,
                                                        WICDecodeMetadataCacheOnDemand, decoder.Receive())) &&
           SUCCEEDED(decoder->GetFrame(0, frame.Receive())) &&
           SUCCEEDED(WICConvertBitmapSource(GUID_WICPixelFormat24bppBGR, frame.Get(), converted.Receive())) &&
           copyPixels(*converted.Get(), into);
}

}  // namespace sio
