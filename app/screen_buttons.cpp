#include "app/screen_buttons.h"

#include <iterator>

#include "liveview/canvas.h"
#include "resources/resource.h"

namespace {

struct ButtonLayout {
    UINT id;
    const wchar_t* caption;
    int x, y;  // in the strip
    int width, height;
    UINT normal, pressed;  // bitmaps
};

constexpr ButtonLayout kLayout[] = {
    {IDC_SHUTTER, L"Shutter", 174, 21, 49, 49, IDB_SHUTTER, IDB_SHUTTER_PRESSED},
    {IDC_MENU, L"Menu", 61, 47, 30, 30, IDB_MENU, IDB_MENU_PRESSED},
    {IDC_PLAY, L"Play", 101, 47, 30, 30, IDB_PLAY, IDB_PLAY_PRESSED},
    {IDC_ZOOM_OUT, L"Zoom Out", 91, 8, 32, 31, IDB_ZOOM_OUT, IDB_ZOOM_OUT_PRESSED},
    {IDC_ZOOM_IN, L"Zoom In", 127, 8, 32, 31, IDB_ZOOM_IN, IDB_ZOOM_IN_PRESSED},
};

// In the display's own colours: a list that is loaded in one call may make do with sixteen.
HIMAGELIST LoadImages(HINSTANCE module, const ButtonLayout& button, UINT id) {
    const HIMAGELIST images = ImageList_Create(button.width, button.height, ILC_COLORDDB | ILC_MASK, 1, 0);
    const HBITMAP bitmap = LoadBitmapW(module, MAKEINTRESOURCEW(id));
    if (images != nullptr && bitmap != nullptr) ImageList_AddMasked(images, bitmap, kTransparentColor);
    if (bitmap != nullptr) DeleteObject(bitmap);
    return images;
}

}  // namespace

void CScreenButtons::Load(HINSTANCE module) {
    static_assert(std::size(kLayout) == kButtons);
    Release();
    m_backgroundBitmap = LoadBitmapW(module, MAKEINTRESOURCEW(IDB_STRIP));
    m_background = CreateCompatibleDC(nullptr);
    if (m_backgroundBitmap != nullptr) m_previousBitmap = SelectObject(m_background, m_backgroundBitmap);
    for (int i = 0; i < kButtons; ++i) {
        m_normal[i] = LoadImages(module, kLayout[i], kLayout[i].normal);
        m_pressed[i] = LoadImages(module, kLayout[i], kLayout[i].pressed);
    }
}

void CScreenButtons::Release() {
    for (int i = 0; i < kButtons; ++i) {
        for (HIMAGELIST* list : {&m_normal[i], &m_pressed[i]}) {
            if (*list != nullptr) ImageList_Destroy(*list);
            *list = nullptr;
        }
    }
    if (m_previousBitmap != nullptr) SelectObject(m_background, m_previousBitmap);
    if (m_backgroundBitmap != nullptr) DeleteObject(m_backgroundBitmap);
    if (m_background != nullptr) DeleteDC(m_background);
    m_previousBitmap = nullptr;
    m_backgroundBitmap = nullptr;
    m_background = nullptr;
}

void CScreenButtons::CreateWindows(HWND screen, HINSTANCE module) const {
    for (const ButtonLayout& button : kLayout) {
        CreateWindowExW(WS_EX_NOACTIVATE, L"BUTTON", button.caption, WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, button.x,
                        button.y + kStripTop, button.width, button.height, screen,
                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(button.id)), module, nullptr);
    }
}

void CScreenButtons::Draw(const DRAWITEMSTRUCT& item) const {
    for (int i = 0; i < kButtons; ++i) {
        const ButtonLayout& button = kLayout[i];
        if (button.id != item.CtlID) continue;
        BitBlt(item.hDC, 0, 0, button.width, button.height, m_background, button.x, button.y, SRCCOPY);
        // The state may carry the focus beside the press: only the selected bit counts.
        const HIMAGELIST images = (item.itemState & ODS_SELECTED) != 0 ? m_pressed[i] : m_normal[i];
        ImageList_Draw(images, 0, item.hDC, 0, 0, ILD_TRANSPARENT);
    }
}
