// The off-screen 24-bit bitmap in which each paint of the live view is composed.
#pragma once
#include "app/overlay_bitmaps.h"
#include "liveview/picture_source.h"
#include "platform/ce.h"

// The one colour that overlays leave out.
inline constexpr COLORREF kTransparentColor = RGB(255, 0, 255);

class CCanvas {
  public:
    CCanvas() = default;
    CCanvas(const CCanvas&) = delete;
    CCanvas& operator=(const CCanvas&) = delete;
    ~CCanvas();

    // Makes the bitmap unless it is there: a paint finds what the one before has drawn.  When the system has no
    // room for it drawing has no effect, and the next paint tries again.
    void Prepare(HDC screen);

    // Pictures go first, and cover everything: they write the bitmap's memory directly.
    void DrawPicture(const PictureSource& picture, int left, int top);

    void DrawOverlay(const OverlayBitmap& overlay, int x, int y);
    // `format`: DT_ flags.  A dark edge keeps the text legible on bright pictures.
    void DrawReadout(const wchar_t* text, const RECT& bounds, UINT format, COLORREF color, HFONT font);

    void CopyTo(HDC screen) const;

  private:
    bool IsReady() const { return m_pixels != nullptr; }
    void Release();

    HDC m_dc = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_previous = nullptr;
    uint8_t* m_pixels = nullptr;
};
