// A full-screen dialog as the handheld's screen: 240 x 320 pixels, a title bar above and a menu bar below its
// client area, both drawn in the window's frame.
#pragma once
#include <windows.h>

#include <memory>

#include "handheld/coredll/screen.h"
#include "handheld/keypad/key_pad.h"

namespace handheld {

inline constexpr int kBarHeight = 26;  // of the title bar and of the menu bar
inline constexpr int kClientHeight = kScreenHeight - 2 * kBarHeight;

class CScreen {
  public:
    // Makes a window a screen, which it stays until it is destroyed.  It comes to lie over the process's
    // present screen, or centred on the desktop.  With doneButton the title bar's button reads "ok" and sends
    // IDOK; otherwise it is a cross and closes the window.
    static void Make(HWND window, bool doneButton);
    static CScreen* From(HWND window) { return static_cast<CScreen*>(GetPropW(window, kScreenProperty)); }

    CScreen(const CScreen&) = delete;
    CScreen& operator=(const CScreen&) = delete;

    void SetDoneButton(bool doneButton);
    void SetBar(HWND bar);
    void RemoveBar(HWND bar);
    HWND Bar() const { return m_bar; }

    // Draws both bars.
    void DrawFrame() const;

  private:
    enum class Part { None, Title, Button, Bar };

    CScreen(HWND window, bool doneButton);
    ~CScreen();

    void Place();
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const;
    Part PartAt(POINT inWindow) const;
    POINT InWindow(POINT onDesktop) const;
    void OnPress(Part part, POINT inWindow);
    void OnRelease(POINT inWindow);
    void OnMenuKey(wchar_t letter);
    void OnMoved() const;
    void DrawTitleBar(HDC to) const;
    void DrawMenuBar(HDC to) const;
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static void CALLBACK OnClock(HWND window, UINT message, UINT_PTR timer, DWORD time);

    const HWND m_window;
    const WNDPROC m_before;
    bool m_doneButton;
    HWND m_bar = nullptr;
    HFONT m_titleFont;
    HFONT m_smallFont;
    Part m_pressed = Part::None;  // what the pen went down on
    int m_pressedButton = -1;     // of the menu bar
    WORD m_shownMinute = 0;
    std::unique_ptr<CKeyPad> m_keyPad;  // of the process's first screen, when wanted
};

}  // namespace handheld
