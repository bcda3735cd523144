#include "app/status_strip.h"

#include "app/screen_buttons.h"
#include "liveview/canvas.h"
#include "resources/art/lettering_layout.h"
#include "resources/resource.h"

namespace {

// 0: the strip stays as it is.
UINT StripBitmap(CaptureMode mode, int32_t videoResolution) {
    if (mode == CaptureMode::video) return IDB_STRIP_VIDEO;
    if (videoResolution == 0) return IDB_STRIP_STILL_LARGE;
    return videoResolution == 1 ? IDB_STRIP_STILL_SMALL : 0;
}

// A bitmap selected into a device context of its own for as long as this lives.
class CBitmapDc {
  public:
    CBitmapDc(HDC like, HBITMAP bitmap) : m_dc(CreateCompatibleDC(like)), m_previous(SelectObject(m_dc, bitmap)) {}
    ~CBitmapDc() {
        SelectObject(m_dc, m_previous);
        DeleteDC(m_dc);
    }
    CBitmapDc(const CBitmapDc&) = delete;
    CBitmapDc& operator=(const CBitmapDc&) = delete;
    HDC Dc() const { return m_dc; }

  private:
    const HDC m_dc;
    const HGDIOBJ m_previous;
};

}  // namespace

void CStatusStrip::Load(HINSTANCE module, CaptureMode mode, int32_t videoResolution) {
    UINT id = StripBitmap(mode, videoResolution);
    if (id == 0 && m_bitmap == nullptr) id = IDB_STRIP;
    if (id == 0) return;
    Release();
    m_bitmap = LoadBitmapW(module, MAKEINTRESOURCEW(id));
    BITMAP info = {};
    if (m_bitmap == nullptr || GetObjectW(m_bitmap, sizeof(info), &info) == 0) return;
    m_size = {info.bmWidth, info.bmHeight};
    DrawLettering(module, mode);
}

// Slots come in pairs, one a button: the first is for the Still strips, the second for the Video strip.
void CStatusStrip::DrawLettering(HINSTANCE module, CaptureMode mode) const {
    if (m_lettering == nullptr) return;
    const CBitmapDc strip(nullptr, m_bitmap);
    const uint16_t* slot = m_lettering + (mode == CaptureMode::video ? 1 : 0);
    for (const art::LetteringPlace& place : art::kLetteringPlaces) {
        const HBITMAP lettering = LoadBitmapW(module, MAKEINTRESOURCEW(*slot));
        BITMAP info = {};
        if (lettering != nullptr && GetObjectW(lettering, sizeof(info), &info) != 0)
            TransparentImage(strip.Dc(), place.x, place.y, info.bmWidth, info.bmHeight, lettering, 0, 0, info.bmWidth,
                             info.bmHeight, kTransparentColor);
        if (lettering != nullptr) DeleteObject(lettering);
        slot += 2;
    }
}

void CStatusStrip::Release() {
    if (m_bitmap != nullptr) DeleteObject(m_bitmap);
    m_bitmap = nullptr;
    m_size = {};
}

void CStatusStrip::Paint(HDC screen) const {
    if (m_bitmap == nullptr) return;
    const CBitmapDc strip(screen, m_bitmap);
    BitBlt(screen, 0, kStripTop, m_size.cx, m_size.cy, strip.Dc(), 0, 0, SRCCOPY);
}
