// The off-screen 24-bit bitmap in which one paint of the live view is composed.
#pragma once
#include "app/overlay_bitmaps.h"
#include "liveview/picture_source.h"
#include "platform/ce.h"

// The one colour that overlays leave out.
inline constexpr COLORREF kTransparentColor = RGB(255, 0, 255);

class CCanvas {
  public:
    explicit CCanvas(HDC screen);
    CCanvas(const CCanvas&) = delete;
    CCanvas& operator=(const CCanvas&) = delete;
    ~CCanvas();

    // False when the system had no room for the bitmap; drawing has no effect then.
    bool IsReady() const { return m_pixels != nullptr; }

    // Pictures go first: they write the bitmap's memory directly.
    void DrawPicture(const PictureSource& picture, int left, int top);

    void DrawOverlay(const OverlayBitmap& overlay, int x, int y);
    // `format`: DT_ flags.  A dark edge keeps the text legible on bright pictures.
    void DrawReadout(const wchar_t* text, const RECT& bounds, UINT format, COLORREF color, HFONT font);

    void CopyTo(HDC screen) const;

  private:
    HDC m_dc = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_previous = nullptr;
    uint8_t* m_pixels = nullptr;
};
