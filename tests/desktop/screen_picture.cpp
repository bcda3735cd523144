#include "desktop/screen_picture.h"

#include <set>

ScreenPicture::ScreenPicture(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    m_width = client.right;
    m_height = client.bottom;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = m_width;
    info.bmiHeader.biHeight = -m_height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    POINT origin = {};
    ClientToScreen(window, &origin);
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, m_width, m_height, screen, origin.x, origin.y, SRCCOPY);
    GdiFlush();
    const auto* source = static_cast<const DWORD*>(bits);
    m_pixels.reserve(static_cast<size_t>(m_width) * m_height);
    for (int i = 0; i < m_width * m_height; ++i)
        m_pixels.push_back(RGB((source[i] >> 16) & 255, (source[i] >> 8) & 255, source[i] & 255));
    SelectObject(memory, previous);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}

int ScreenPicture::Count(COLORREF color, const RECT& bounds) const {
    int count = 0;
    for (int y = bounds.top; y < bounds.bottom; ++y)
        for (int x = bounds.left; x < bounds.right; ++x) count += At(x, y) == color;
    return count;
}

int ScreenPicture::Colors(const RECT& bounds) const {
    std::set<COLORREF> colors;
    for (int y = bounds.top; y < bounds.bottom; ++y)
        for (int x = bounds.left; x < bounds.right; ++x) colors.insert(At(x, y));
    return static_cast<int>(colors.size());
}
