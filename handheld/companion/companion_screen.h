// A program's one window, looking like the handheld's screen: 240 x 320 pixels with a title bar above, a tool
// bar below and the program's own body between them.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

#include "handheld/companion/icons.h"

namespace handheld {

inline constexpr int kTitleHeight = 26;
inline constexpr int kToolHeight = 34;
inline constexpr RECT kBody = {0, kTitleHeight, 240, 320 - kToolHeight};
inline constexpr int kBodyWidth = kBody.right - kBody.left;
inline constexpr int kBodyHeight = kBody.bottom - kBody.top;

struct ToolButton {
    int id;
    Icon icon;
    bool enabled;
};

class CCompanionScreen {
  public:
    CCompanionScreen();
    virtual ~CCompanionScreen();
    CCompanionScreen(const CCompanionScreen&) = delete;
    CCompanionScreen& operator=(const CCompanionScreen&) = delete;

    // Makes and shows the window, runs until it is closed.  Returns the process's exit code.
    int Run(HINSTANCE module, const wchar_t* className);

  protected:
    // What stands in the bars; asked at every painting.
    virtual std::wstring Title() const = 0;
    virtual std::wstring TitleNote() const { return {}; }  // small, at the title's right
    virtual std::vector<ToolButton> Buttons() const = 0;

    // The body's origin is (0, 0) for all of these.
    virtual void PaintBody(HDC to) = 0;
    virtual void OnBodyDown(POINT) {}
    virtual void OnBodyDrag(POINT /*from*/, POINT /*to*/) {}  // while the button is down
    virtual void OnBodyDoubleClick(POINT) {}
    virtual bool OnBodyCursor(POINT) { return false; }  // true: has set a cursor

    virtual void OnCreated() {}
    virtual void OnButton(int id) = 0;
    virtual void OnKey(WPARAM key) = 0;
    virtual void OnWheel(int /*steps*/) {}  // above 0: away from the user
    virtual void OnTick() {}                // while a tick is set
    virtual void OnScroll(int /*request*/, int /*position*/) {
    }  // of a scroll bar: SB_..., where its thumb is dragged to

    HWND Window() const { return m_window; }
    LCID Locale() const { return m_locale; }
    HFONT TextFont() const { return m_textFont; }
    HFONT BoldFont() const { return m_boldFont; }
    void Refresh();               // paints everything anew
    void SetTick(UINT interval);  // milliseconds; 0 stops
    void Close();

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void Paint();
    void PaintTitle(HDC to) const;
    void PaintTools(HDC to) const;
    int ButtonAt(POINT at) const;  // its id, or kNothing
    void OnDown(POINT at);
    void OnUp(POINT at);
    void OnWheelMessage(WPARAM wParam);

    static constexpr int kNothing = -1, kCloseButton = -2, kBodyPart = -3;

    HWND m_window = nullptr;
    const LCID m_locale;
    const HFONT m_textFont, m_boldFont;
    int m_pressed = kNothing;  // what the mouse button went down on
    bool m_overPressed = false;
    POINT m_last = {};  // where a drag has come to, in the body
    int m_wheel = 0;    // turned, but not yet a whole step
};

}  // namespace handheld
