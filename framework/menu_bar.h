// CMenuBar: the shell's menu bar at the bottom of the screen.
#pragma once
#include "platform/ce.h"

class CMenuBar {
  public:
    CMenuBar() = default;
    CMenuBar(const CMenuBar&) = delete;
    CMenuBar& operator=(const CMenuBar&) = delete;
    ~CMenuBar() { Destroy(); }

    // `resourceId`: the shell's description of the bar in the program's module, which names the menu.
    // A bar that exists is replaced.  False when the shell refuses; there is then no bar.
    bool Create(HWND parent, UINT resourceId);
    void Destroy();

    // Null without a bar, also when it went down with its parent.
    HWND Hwnd() const { return IsWindow(m_hwnd) ? m_hwnd : nullptr; }

    // Menu items anywhere in the menu, by command; without a bar nothing happens.
    void Enable(UINT command, bool enabled) const;
    void Check(UINT command, bool checked) const;

  private:
    HMENU Menu() const;

    HWND m_hwnd = nullptr;
};
