#include "desktop/picture_file.h"

#include <windows.h>

#include <wincodec.h>

namespace {

template <class Interface>
class Reference {
  public:
    Reference() = default;
    ~Reference() {
        if (m_object != nullptr) m_object->Release();
    }
    Reference(const Reference&) = delete;
    Reference& operator=(const Reference&) = delete;
    Interface** Receive() { return &m_object; }
    Interface* operator->() const { return m_object; }
    Interface* Get() const { return m_object; }

  private:
    Interface* m_object = nullptr;
};

bool MakeFactory(Reference<IWICImagingFactory>& factory) {
    [[maybe_unused]] static const HRESULT ready = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    return SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                      reinterpret_cast<void**>(factory.Receive())));
}

}  // namespace

PixelPicture ReadPicture(const std::filesystem::path& path) {
    Reference<IWICImagingFactory> factory;
    Reference<IWICBitmapDecoder> decoder;
    Reference<IWICBitmapFrameDecode> frame;
    Reference<IWICBitmapSource> source;
    UINT width = 0, height = 0;
    PixelPicture picture;
    if (!MakeFactory(factory) ||
        FAILED(factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ, WICDecodeMetadataCacheOnDemand,
                                                  decoder.Receive())) ||
        FAILED(decoder->GetFrame(0, frame.Receive())) ||
        FAILED(WICConvertBitmapSource(GUID_WICPixelFormat24bppBGR, frame.Get(), source.Receive())) ||
        FAILED(source->GetSize(&width, &height)))
        return picture;
    picture.pixels.resize(size_t{width} * height * 3);
    if (FAILED(source->CopyPixels(nullptr, width * 3, static_cast<UINT>(picture.pixels.size()), picture.pixels.data())))
        return picture;
    picture.width = static_cast<int>(width);
    picture.height = static_cast<int>(height);
    return picture;
}

bool WritePicture(const std::filesystem::path& path, const PixelPicture& picture) {
    Reference<IWICImagingFactory> factory;
    Reference<IWICStream> stream;
    Reference<IWICBitmapEncoder> encoder;
    Reference<IWICBitmapFrameEncode> frame;
    Reference<IPropertyBag2> options;
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    std::vector<uint8_t> pixels = picture.pixels;
    return MakeFactory(factory) && SUCCEEDED(factory->CreateStream(stream.Receive())) &&
           SUCCEEDED(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE)) &&
           SUCCEEDED(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.Receive())) &&
           SUCCEEDED(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache)) &&
           SUCCEEDED(encoder->CreateNewFrame(frame.Receive(), options.Receive())) &&
           SUCCEEDED(frame->Initialize(options.Get())) &&
           SUCCEEDED(frame->SetSize(static_cast<UINT>(picture.width), static_cast<UINT>(picture.height))) &&
           SUCCEEDED(frame->SetPixelFormat(&format)) && IsEqualGUID(format, GUID_WICPixelFormat24bppBGR) &&
           SUCCEEDED(frame->WritePixels(static_cast<UINT>(picture.height), static_cast<UINT>(picture.width) * 3,
                                        static_cast<UINT>(pixels.size()), pixels.data())) &&
           SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder->Commit());
}
