// The menu bar at the bottom of the screen.  Its window carries no picture: the screen draws the bar into its
// own frame and passes clicks on.  The window answers SHCMBM_GETMENU and SHCMBM_GETSUBMENU, and the bar goes
// with it.
#pragma once
#include <windows.h>

#include <string>
#include <vector>

#include "platform/ce.h"

namespace handheld {

class CMenuBar {
  public:
    // Makes the bar of a resource for a parent window that is a screen; null, with the last error set, when
    // the resource, its menu or one of its pop-ups is missing.
    static HWND Create(const SHMENUBARINFO& info);
    static CMenuBar* From(HWND bar);

    CMenuBar(const CMenuBar&) = delete;
    CMenuBar& operator=(const CMenuBar&) = delete;

    // Draws the bar into a strip; the pressed button (-1: none) and the one whose pop-up is open stand out.
    void Draw(HDC to, const RECT& strip, int pressed) const;

    // Button at a distance from the screen's left edge, -1 for none or while the bar does not react.
    int ButtonAt(int x) const;
    // First button with a pop-up whose caption marks a letter; any letter for 0; -1 for none.
    int ButtonFor(wchar_t letter) const;

    bool HasPopup(int button) const { return m_buttons[button].popup != nullptr; }
    // Opens a button's pop-up and follows it to its end; the bar may be gone afterwards.
    void Open(int button);
    // Sends the command of a button without a pop-up.
    void Command(int button) const;

  private:
    struct Button {
        UINT command;
        bool enabled;
        bool visible;
        std::wstring caption;
        HMENU popup;  // null: the button is a command
        int left;
        int right;
    };

    CMenuBar(HWND parent, HMENU menu) : m_parent(parent), m_menu(menu) {}
    ~CMenuBar();

    bool AddButtons(const struct MenuTemplate& buttons, HINSTANCE resources);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    bool OnMenuMessage(const MSG& message);
    bool Switch(int button);
    int Neighbour(int button, int step) const;
    int ButtonUnder(POINT point) const;
    void Redraw() const;

    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK OnMenuFilter(int code, WPARAM wParam, LPARAM lParam);

    HWND m_window = nullptr;
    const HWND m_parent;
    const HMENU m_menu;
    HFONT m_font = nullptr;
    std::vector<Button> m_buttons;
    int m_open = -1;  // button whose pop-up is shown
    int m_next = -1;  // button whose pop-up comes after it
};

}  // namespace handheld
