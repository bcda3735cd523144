#include "handheld/korvoimgview/picture_decoder.h"

namespace viewer {
namespace {

constexpr uint64_t kMostPixels = 64'000'000;

// Holds a COM object and lets go of it.
template <class Interface>
class CHeld {
  public:
    CHeld() = default;
    ~CHeld() {
        if (m_object) m_object->Release();
    }
    CHeld(const CHeld&) = delete;
    CHeld& operator=(const CHeld&) = delete;
    Interface** operator&() { return &m_object; }
    Interface* operator->() const { return m_object; }
    Interface* get() const { return m_object; }

  private:
    Interface* m_object = nullptr;
};

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
    CHeld<IWICStream> stream;
    CHeld<IWICBitmapDecoder> decoder;
    CHeld<IWICBitmapFrameDecode> frame;
    CHeld<IWICFormatConverter> converter;
    UINT width = 0, height = 0;
    if (FAILED(m_factory->CreateStream(&stream)) ||
        FAILED(
            stream->InitializeFromMemory(const_cast<BYTE*>(file.data()), static_cast<DWORD>(file.size()))) ||
        FAILED(m_factory->CreateDecoderFromStream(stream.get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                                  &decoder)) ||
        FAILED(decoder->GetFrame(0, &frame)) || FAILED(frame->GetSize(&width, &height)) || width == 0 ||
        height == 0)
        return DecodeResult::damaged;
    if (uint64_t{width} * height > kMostPixels) return DecodeResult::tooLarge;
    // Multiplied by its opacity, a colour is what it looks like on black.
    if (FAILED(m_factory->CreateFormatConverter(&converter)) ||
        FAILED(converter->Initialize(frame.get(), GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone,
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
