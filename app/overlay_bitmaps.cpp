#include "app/overlay_bitmaps.h"

void COverlayBitmaps::Load(HINSTANCE module) {
    Release();
    for (const OverlayFamily& family : kOverlayFamilies) {
        for (uint32_t id = family.Id(family.first); id <= family.Id(family.last); ++id) {
            const HBITMAP bitmap = LoadBitmapW(module, MAKEINTRESOURCEW(id));
            BITMAP size;
            if (bitmap == nullptr || GetObjectW(bitmap, sizeof(size), &size) == 0) continue;
            m_items[m_count++] = {id, bitmap, size.bmWidth, size.bmHeight};
        }
    }
}

void COverlayBitmaps::Release() {
    for (uint32_t i = 0; i < m_count; ++i) DeleteObject(m_items[i].bitmap);
    m_count = 0;
}

const OverlayBitmap* COverlayBitmaps::Find(uint32_t id) const {
    for (uint32_t i = 0; i < m_count; ++i)
        if (m_items[i].id == id) return &m_items[i];
    return nullptr;
}
