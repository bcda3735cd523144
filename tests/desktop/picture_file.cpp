#include "desktop/picture_file.h"

#include <windows.h>

#include <wincodec.h>

#include "handheld/common/com_reference.h"

namespace {

using handheld::CComReference;

bool MakeFactory(CComReference<IWICImagingFactory>& factory) {
    [[maybe_unused]] static const HRESULT ready = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    return SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                      reinterpret_cast<void**>(factory.Receive())));
}

}  // namespace

PixelPicture ReadPicture(const std::filesystem::path& path) {
    CComReference<IWICImagingFactory> factory;
    CComReference<IWICBitmapDecoder> decoder;
    CComReference<IWICBitmapFrameDecode> frame;
    CComReference<IWICBitmapSource> source;
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
    CComReference<IWICImagingFactory> factory;
    CComReference<IWICStream> stream;
    CComReference<IWICBitmapEncoder> encoder;
    CComReference<IWICBitmapFrameEncode> frame;
    CComReference<IPropertyBag2> options;
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
