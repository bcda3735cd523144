#include <gtest/gtest.h>

#include "platform/ce.h"

namespace {

constexpr COLORREF kPink = RGB(255, 0, 255), kGreen = RGB(0, 128, 0), kNavy = RGB(0, 0, 128);

// A 24-bit picture of its own, as the camera composes its screen in.
class Picture {
  public:
    Picture(int width, int height, COLORREF colour) : m_dc(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
        void* bits;
        m_bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        m_before = SelectObject(m_dc, m_bitmap);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) SetPixel(m_dc, x, y, colour);
    }
    ~Picture() {
        Release();
        DeleteObject(m_bitmap);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    HDC Dc() const { return m_dc; }
    // The bitmap, selected into no device context any more.
    HBITMAP Release() {
        if (m_dc) {
            SelectObject(m_dc, m_before);
            DeleteDC(m_dc);
            m_dc = nullptr;
        }
        return m_bitmap;
    }

  private:
    HDC m_dc;
    HBITMAP m_bitmap;
    HGDIOBJ m_before;
};

void ExpectOverlay(const Picture& picture) {
    EXPECT_EQ(GetPixel(picture.Dc(), 2, 1), kGreen);  // copied
    EXPECT_EQ(GetPixel(picture.Dc(), 3, 1), kNavy);   // left out
    EXPECT_EQ(GetPixel(picture.Dc(), 5, 1), kNavy);   // beside it
}

}  // namespace

TEST(TransparentImage, FromDeviceContext) {
    Picture to(8, 4, kNavy), from(2, 2, kPink);
    SetPixel(from.Dc(), 0, 0, kGreen);
    EXPECT_TRUE(TransparentImage(to.Dc(), 2, 1, 2, 2, from.Dc(), 0, 0, 2, 2, kPink));
    ExpectOverlay(to);
}

TEST(TransparentImage, FromBitmap) {
    Picture to(8, 4, kNavy), from(2, 2, kPink);
    SetPixel(from.Dc(), 0, 0, kGreen);
    EXPECT_TRUE(TransparentImage(to.Dc(), 2, 1, 2, 2, from.Release(), 0, 0, 2, 2, kPink));
    ExpectOverlay(to);
}

TEST(TransparentImage, Stretches) {
    Picture to(8, 4, kNavy), from(2, 2, kPink);
    SetPixel(from.Dc(), 0, 0, kGreen);
    EXPECT_TRUE(TransparentImage(to.Dc(), 0, 0, 4, 4, from.Dc(), 0, 0, 2, 2, kPink));
    EXPECT_EQ(GetPixel(to.Dc(), 1, 1), kGreen);
    EXPECT_EQ(GetPixel(to.Dc(), 2, 1), kNavy);
}

TEST(TransparentImage, KeepsNearbyColours) {
    Picture to(2, 1, kNavy), from(2, 1, RGB(255, 1, 255));
    EXPECT_TRUE(TransparentImage(to.Dc(), 0, 0, 2, 1, from.Dc(), 0, 0, 2, 1, kPink));
    EXPECT_EQ(GetPixel(to.Dc(), 0, 0), RGB(255, 1, 255));
}

TEST(TransparentImage, NoSourceFails) {
    Picture to(2, 1, kNavy);
    EXPECT_FALSE(TransparentImage(to.Dc(), 0, 0, 2, 1, nullptr, 0, 0, 2, 1, kPink));
    EXPECT_EQ(GetPixel(to.Dc(), 0, 0), kNavy);
}

TEST(TransparentImage, LeavesNoObjectsBehind) {
    Picture to(8, 4, kNavy), from(2, 2, kPink);
    HBITMAP bitmap = from.Release();
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    for (int i = 0; i < 500; ++i) TransparentImage(to.Dc(), 2, 1, 2, 2, bitmap, 0, 0, 2, 2, kPink);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before);
    HDC other = CreateCompatibleDC(nullptr);
    EXPECT_TRUE(SelectObject(other, bitmap));  // still free to be selected
    DeleteDC(other);
}
