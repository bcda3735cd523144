// A dialog that becomes the handheld's screen, and a user who works it.
#pragma once
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "platform/ce.h"

// Has a test dialog destroy itself, wherever its messages are being delivered from.
inline constexpr UINT kMsgDestroy = WM_APP;

// A modeless dialog with every frame style a template may bring; it notes what reaches its procedure.
class TestDialog {
  public:
    explicit TestDialog(HWND owner = nullptr);
    ~TestDialog();
    TestDialog(const TestDialog&) = delete;
    TestDialog& operator=(const TestDialog&) = delete;

    HWND Window() const { return m_window; }
    // Makes the dialog the screen.
    void Fill(DWORD flags = SHIDIF_SIZEDLGFULLSCREEN);
    // Gives it the menu bar of a resource; null when that fails.
    HWND AddBar(UINT resource);

    RECT Place() const;
    // Pen down and up at a place of the window, in its frame.
    void Tap(int x, int y);
    COLORREF Pixel(int x, int y) const;
    // Delivers everything that is waiting.
    void Pump();
    bool Got(UINT message) const;
    bool GotCommand(int id) const;

  private:
    struct Note {
        UINT message;
        WPARAM wParam;
    };
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_window;
    std::vector<Note> m_notes;
};

// While `open` shows a pop-up menu and follows it, `use` runs on another thread and is given the menu's
// window.
void WithPopup(const std::function<void()>& open, const std::function<void(HWND)>& use);

// The pop-up menu window shown now, null after two seconds without; `other` is one that does not count.
HWND WaitForPopup(HWND other = nullptr);
