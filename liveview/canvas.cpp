#include "liveview/canvas.h"

#include <algorithm>
#include <cstring>

#include "liveview/overlay_plan.h"

CCanvas::CCanvas(HDC screen) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = kCanvasWidth;
    info.bmiHeader.biHeight = -kCanvasHeight;  // top row first, as the decoder writes
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    void* pixels = nullptr;
    m_dc = CreateCompatibleDC(screen);
    m_bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    if (m_dc == nullptr || m_bitmap == nullptr) return;
    m_previous = SelectObject(m_dc, m_bitmap);
    m_pixels = static_cast<uint8_t*>(pixels);
}

CCanvas::~CCanvas() {
    if (m_previous != nullptr) SelectObject(m_dc, m_previous);
    if (m_bitmap != nullptr) DeleteObject(m_bitmap);
    if (m_dc != nullptr) DeleteDC(m_dc);
}

void CCanvas::DrawPicture(const PictureSource& picture, int left, int top) {
    if (!IsReady()) return;
    const int rows = std::min(picture.height, kCanvasHeight - top);
    const int bytes = std::min(picture.width, kCanvasWidth - left) * 3;
    for (int y = 0; y < rows; ++y)
        std::memcpy(m_pixels + (top + y) * RowBytes(kCanvasWidth) + left * 3,
                    picture.pixels + y * RowBytes(picture.width), bytes);
}

void CCanvas::DrawOverlay(const OverlayBitmap& overlay, int x, int y) {
    if (IsReady())
        TransparentImage(m_dc, x, y, overlay.width, overlay.height, overlay.bitmap, 0, 0, overlay.width,
                         overlay.height, kTransparentColor);
}

void CCanvas::DrawReadout(const wchar_t* text, const RECT& bounds, UINT format, COLORREF color, HFONT font) {
    if (!IsReady()) return;
    static constexpr POINT kEdge[] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};
    const HGDIOBJ previous = SelectObject(m_dc, font);
    SetBkMode(m_dc, TRANSPARENT);
    SetTextColor(m_dc, RGB(0, 0, 0));
    for (const POINT& offset : kEdge) {
        RECT shifted = bounds;
        OffsetRect(&shifted, offset.x, offset.y);
        DrawTextW(m_dc, text, -1, &shifted, format);
    }
    SetTextColor(m_dc, color);
    RECT place = bounds;
    DrawTextW(m_dc, text, -1, &place, format);
    SelectObject(m_dc, previous);
}

void CCanvas::CopyTo(HDC screen) const {
    if (IsReady()) BitBlt(screen, 0, 0, kCanvasWidth, kCanvasHeight, m_dc, 0, 0, SRCCOPY);
}
