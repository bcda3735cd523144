// CWindow: the base of everything on the screen that has its own message table.
#pragma once
#include "framework/message_map.h"

class CWindow {
  public:
    CWindow() = default;
    CWindow(const CWindow&) = delete;
    CWindow& operator=(const CWindow&) = delete;
    virtual ~CWindow();  // destroys the window, too; its handlers are not called any more

    // Creates the window; false when that failed, or it exists.  `className`: see RegisterWindowClass below.
    // `bounds` are relative to the parent; `id` is a child's number, 0 for windows that are no children.
    bool Create(const wchar_t* className, const wchar_t* title, DWORD style, DWORD extendedStyle,
                const RECT& bounds, HWND parent, UINT id);

    // Null before creation and after destruction.
    HWND Hwnd() const { return m_hwnd; }

    // The object behind a window, or null when it is not one of the framework's.  User-interface thread only.
    static CWindow* Of(HWND hwnd);

    // A modal message box over this window; the button's id.  Null texts show as empty.
    int ShowMessage(const wchar_t* text, const wchar_t* caption, UINT style) const;

    // The message table; see message_map.h.
    virtual Reply OnMessage(const Message& message);

    // Sees every WM_COMMAND before the tables do.  Then::done: it goes no further.
    // `code` is the notification, `control` its sender; 0 and null for menu items.
    virtual Then OnCommand(UINT id, UINT code, HWND control);

    // Sees every message of the queue for this window and its children before it is dispatched.
    // True: the message ends here (it may have been changed, or dispatched another way).
    virtual bool PreTranslateMessage(MSG& message);

  protected:
    void Attach(HWND hwnd);

    // Hands one message to OnCommand and the tables, and parts object and window when the window is gone.
    static Reply Route(HWND hwnd, const Message& message);

    // The window has been destroyed and Hwnd() is null.
    virtual void OnWindowGone() {}

  private:
    friend bool RegisterWindowClass(const wchar_t* name, UINT style, HBRUSH background);
    static LRESULT CALLBACK WindowProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    void Detach();

    // All objects that have a window, in a list through the objects.  (A window itself has room for 32 bits
    // of its program's on CE, too few for a desktop's pointer.)
    static CWindow* s_first;
    CWindow* m_next = nullptr;
    HWND m_hwnd = nullptr;
};

// Registers a window class of the program's own for CWindow::Create; a second call for a name changes
// nothing. `style`: CS_...  `background`: null when the window paints all of itself.
bool RegisterWindowClass(const wchar_t* name, UINT style, HBRUSH background);
