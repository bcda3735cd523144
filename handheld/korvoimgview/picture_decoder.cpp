#include "handheld/korvoimgview/picture_decoder.h"

#include "handheld/common/com_reference.h"

namespace viewer {
namespace {

constexpr uint64_t kMostPixels = 64'000'000;

}  // namespace

CPictureDecoder::CPictureDecoder() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                     reinterpret_cast<void**>(&m_factory));
}

CPictureDecoder::~CPictureDecoder() {
    if (m_factory) m_factory->Release();
    CoUninitialize();
}

DecodeResult CPictureDecoder::Decode(const std::vector<uint8_t>& file, Pixels& pixels) const {
    if (!m_factory || file.empty()) return DecodeResult::damaged;
    handheld::CComReference<IWICStream> stream;
    handheld::CComReference<IWICBitmapDecoder> decoder;
    handheld::CComReference<IWICBitmapFrameDecode> frame;
    handheld::CComReference<IWICFormatConverter> converter;
    UINT width = 0, height = 0;
    if (FAILED(m_factory->CreateStream(stream.Receive())) ||
        FAILED(
            stream->InitializeFromMemory(const_cast<BYTE*>(file.data()), static_cast<DWORD>(file.size()))) ||
        FAILED(m_factory->CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                                  decoder.Receive())) ||
        FAILED(decoder->GetFrame(0, frame.Receive())) || FAILED(frame->GetSize(&width, &height)) ||
        width == 0 || height == 0)
        return DecodeResult::damaged;
    if (uint64_t{width} * height > kMostPixels) return DecodeResult::tooLarge;
    // Multiplied by its opacity, a colour is what it looks like on black.
    if (FAILED(m_factory->CreateFormatConverter(converter.Receive())) ||
        FAILED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone,
                                     nullptr, 0, WICBitmapPaletteTypeCustom)))
        return DecodeResult::damaged;
    Pixels decoded;
    decoded.Allocate(static_cast<int>(width), static_cast<int>(height));
    if (FAILED(converter->CopyPixels(nullptr, width * 4, width * height * 4,
                                     reinterpret_cast<BYTE*>(decoded.data.data()))))
        return DecodeResult::damaged;
    for (uint32_t& pixel : decoded.data) pixel &= 0xFFFFFF;
    pixels = std::move(decoded);
    return DecodeResult::ok;
}

}  // namespace viewer
