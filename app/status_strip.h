// The strip's picture below the live view, with the buttons' lettering on it.
#pragma once
#include "app/screen_state.h"
#include "platform/ce.h"

class CStatusStrip {
  public:
    CStatusStrip() = default;
    CStatusStrip(const CStatusStrip&) = delete;
    CStatusStrip& operator=(const CStatusStrip&) = delete;
    ~CStatusStrip() { Release(); }

    // Which ten bitmaps carry the lettering; before the first Load.
    void SetLettering(const uint16_t* bitmaps) { m_lettering = bitmaps; }

    // Loads the strip for the mode and, in Still mode, the video resolution.  A resolution that has no strip of its
    // own keeps what is there.
    void Load(HINSTANCE module, CaptureMode mode, int32_t videoResolution);
    void Release();

    void Paint(HDC screen) const;

  private:
    void DrawLettering(HINSTANCE module, CaptureMode mode) const;

    const uint16_t* m_lettering = nullptr;
    HBITMAP m_bitmap = nullptr;
    SIZE m_size = {};
};
