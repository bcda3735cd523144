// Pixels of a window as the user sees them.
#pragma once
#include <windows.h>

#include <vector>

class ScreenPicture {
  public:
    // The client area of a window, from the screen.
    explicit ScreenPicture(HWND window);

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    COLORREF At(int x, int y) const { return m_pixels[static_cast<size_t>(y) * m_width + x]; }

    // Pixels inside the rectangle that have exactly this colour.
    int Count(COLORREF color, const RECT& bounds) const;
    // Different colours inside the rectangle.
    int Colors(const RECT& bounds) const;

    bool operator==(const ScreenPicture& other) const { return m_pixels == other.m_pixels; }

  private:
    int m_width = 0, m_height = 0;
    std::vector<COLORREF> m_pixels;
};
