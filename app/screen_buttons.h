// The five owner-drawn buttons on the strip below the live view.
#pragma once
#include "platform/ce.h"

inline constexpr int kStripTop = 180;
inline constexpr int kStripWidth = 240;
inline constexpr int kStripHeight = 108;

class CScreenButtons {
  public:
    CScreenButtons() = default;
    CScreenButtons(const CScreenButtons&) = delete;
    CScreenButtons& operator=(const CScreenButtons&) = delete;
    ~CScreenButtons() { Release(); }

    // Loads the image lists and the background that the buttons are drawn on; what is loaded is released first.
    void Load(HINSTANCE module);
    void Release();

    void CreateWindows(HWND screen, HINSTANCE module) const;
    void Draw(const DRAWITEMSTRUCT& item) const;

  private:
    static constexpr int kButtons = 5;

    HDC m_background = nullptr;
    HBITMAP m_backgroundBitmap = nullptr;
    HGDIOBJ m_previousBitmap = nullptr;
    HIMAGELIST m_normal[kButtons] = {};
    HIMAGELIST m_pressed[kButtons] = {};
};
