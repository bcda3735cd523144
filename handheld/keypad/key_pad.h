// The handheld's hardware keys as a small window below its screen.
//
// A key is down for as long as the pen is, and reaches whatever the user works in as the keyboard's messages
// do.  The window never becomes the active one.  It has a thread of its own, so that keys go down and up at
// the user's time also while the program is busy.
#pragma once
#include <windows.h>

#include <atomic>

#include "handheld/keypad/pad_layout.h"

namespace handheld {

class CKeyPad {
  public:
    // HANDHELD_KEYPAD=off: no pad.
    static bool IsWanted();

    // Below a screen, which it belongs to, whose thread has to be the one that takes the keys.
    explicit CKeyPad(HWND screen);
    ~CKeyPad();
    CKeyPad(const CKeyPad&) = delete;
    CKeyPad& operator=(const CKeyPad&) = delete;

    // The screen was moved, shown or hidden.
    void Follow() const;

  private:
    static DWORD WINAPI Run(void* pad);
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    bool Create();
    void TakeMessages() const;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void Place() const;
    void Paint() const;
    void OnPress(POINT place);
    void Release();
    void ShowCard();
    void SendKey(UINT message, LPARAM state) const;
    HWND KeyTarget() const;

    const HWND m_screen;
    const HANDLE m_stop;
    HANDLE m_thread = nullptr;
    std::atomic<HWND> m_window{nullptr};

    // Of the pad's thread:
    HBITMAP m_picture = nullptr;        // see art/render.py
    const PadKey* m_pressed = nullptr;  // held down, or null
    bool m_cardIn = true;               // as shown
};

}  // namespace handheld
