// The overlay bitmaps, loaded by the camera screen and drawn by the live view.
#pragma once
#include "liveview/overlay_ids.h"
#include "platform/ce.h"

struct OverlayBitmap {
    uint32_t id = 0;  // resource
    HBITMAP bitmap = nullptr;
    int width = 0;
    int height = 0;
};

class COverlayBitmaps {
  public:
    COverlayBitmaps() = default;
    COverlayBitmaps(const COverlayBitmaps&) = delete;
    COverlayBitmaps& operator=(const COverlayBitmaps&) = delete;
    ~COverlayBitmaps() { Release(); }

    // Loads every overlay from the module; what is loaded already is released first.
    void Load(HINSTANCE module);
    void Release();

    // Null when there is no such overlay.
    const OverlayBitmap* Find(uint32_t id) const;

  private:
    OverlayBitmap m_items[OverlayCount()];
    uint32_t m_count = 0;
};
