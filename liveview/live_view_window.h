// The live-view window: receives the card's frames, shows them with overlays and readouts.
#pragma once
#include "app/overlay_bitmaps.h"
#include "app/text_lookup.h"
#include "framework/window.h"
#include "liveview/frame_arrival.h"

inline constexpr wchar_t kLiveViewClass[] = L"ZelCameraVideoWindow";

class CCanvas;

class CLiveViewWindow : public CWindow {
  public:
    CLiveViewWindow(LiveView& view, const COverlayBitmaps& overlays, const TextLookup& texts)
        : m_view(view), m_overlays(overlays), m_texts(texts) {}

    // Registers the window class, builds the decoder's Huffman tables and creates the window as a child of the
    // camera screen.  False when the window could not be made.
    bool CreateIn(HWND screen, const RECT& bounds);

    // Call when a countdown has been started.
    void StartCountdownClock();

    Reply OnMessage(const Message& message) override;

  private:
    void OnCreate();
    void OnDestroy();
    void OnPaint();
    LRESULT OnEraseBackground() { return 1; }  // the paint covers everything: no flicker
    void OnTap(POINT place);
    void OnFrameReady();
    void OnTimer(UINT_PTR id);

    void RunCountdown();
    bool IsReviewing() const;
    void Compose(CCanvas& canvas);
    void DrawPicture(CCanvas& canvas) const;
    void DrawOverlays(CCanvas& canvas) const;
    void DrawCount(CCanvas& canvas);
    void DrawFrameRate(CCanvas& canvas);

    LiveView& m_view;
    const COverlayBitmaps& m_overlays;
    const TextLookup& m_texts;
    HFONT m_font = nullptr;
    DWORD m_previousPaint = 0;  // tick count; 0 before the first paint
};
