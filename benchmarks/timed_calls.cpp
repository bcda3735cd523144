// Timed doubles of the calls that a frame goes through.  The linker puts each in the place of the program's
// function (--wrap in CMakeLists.txt) and gives the function itself another name; a method is a function of
// its object.
#include "benchmarks/frame_times.h"
#include "liveview/canvas.h"
#include "liveview/frame_arrival.h"

#define TIME(span, result, name, symbol, parameters, ...) \
    result Real##name parameters asm("__real_" symbol);   \
    result Timed##name parameters asm("__wrap_" symbol);  \
    result Timed##name parameters {                       \
        const CSpanTimer timer(span);                     \
        return Real##name(__VA_ARGS__);                   \
    }

// clang-format off
TIME(Span::read, uint32_t, Read, "_Z9ReadFrameR12CameraDevicePh", (CameraDevice& device, uint8_t* scan), device, scan)
TIME(Span::decode, uint32_t, Decode, "_Z13DecodePictureR14DecoderContextPKhjiR12DecodedImage",
     (DecoderContext& decoder, const uint8_t* jpeg, uint32_t bytes, int32_t mode, DecodedImage& image),
     decoder, jpeg, bytes, mode, image)
TIME(Span::freeSpace, bool, FreeSpace, "_Z14FreeStoreBytesRj", (uint32_t& bytes), bytes)
TIME(Span::canvas, void, Create, "_ZN7CCanvasC1EP5HDC__", (CCanvas* canvas, HDC screen), canvas, screen)
TIME(Span::canvas, void, Destroy, "_ZN7CCanvasD1Ev", (CCanvas* canvas), canvas)
TIME(Span::picture, void, Picture, "_ZN7CCanvas11DrawPictureERK13PictureSourceii",
     (CCanvas* canvas, const PictureSource& picture, int left, int top), canvas, picture, left, top)
TIME(Span::overlays, void, Overlay, "_ZN7CCanvas11DrawOverlayERK13OverlayBitmapii",
     (CCanvas* canvas, const OverlayBitmap& overlay, int x, int y), canvas, overlay, x, y)
TIME(Span::readouts, void, Readout, "_ZN7CCanvas11DrawReadoutEPKwRK7tagRECTjmP7HFONT__",
     (CCanvas* canvas, const wchar_t* text, const RECT& bounds, UINT format, COLORREF color, HFONT font),
     canvas, text, bounds, format, color, font)
TIME(Span::copy, void, Copy, "_ZNK7CCanvas6CopyToEP5HDC__", (const CCanvas* canvas, HDC screen), canvas, screen)
// clang-format on
