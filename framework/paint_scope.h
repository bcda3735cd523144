// CPaintScope: the device context of a WM_PAINT handler, for as long as the handler runs.
#pragma once
#include "platform/ce.h"

class CPaintScope {
  public:
    explicit CPaintScope(HWND hwnd) : m_hwnd(hwnd), m_dc(BeginPaint(hwnd, &m_paint)) {}
    ~CPaintScope() { EndPaint(m_hwnd, &m_paint); }
    CPaintScope(const CPaintScope&) = delete;
    CPaintScope& operator=(const CPaintScope&) = delete;

    HDC Dc() const { return m_dc; }
    const RECT& Dirty() const { return m_paint.rcPaint; }

  private:
    const HWND m_hwnd;
    PAINTSTRUCT m_paint;
    const HDC m_dc;
};
