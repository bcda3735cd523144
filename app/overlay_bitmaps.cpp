#include "app/overlay_bitmaps.h"

#include "resources/resource.h"

namespace {

struct IdRange {
    uint32_t first, last;
};

constexpr IdRange kOverlays[] = {
    {IDB_CENTRE_MARK, IDB_MODE_VIDEO},
    {IDB_WHITE_BALANCE + 1, IDB_WHITE_BALANCE + 3},
    {IDB_COLOR + 1, IDB_COLOR + 2},
    {IDB_COUNTDOWN, IDB_SELF_TIMER_IDLE},
    {IDB_RECORDING_IDLE, IDB_RECORDING + 2},
    {IDB_ZOOM, IDB_MEMORY_CARD},
};

constexpr uint32_t OverlayCount() {
    uint32_t count = 0;
    for (const IdRange& range : kOverlays) count += range.last - range.first + 1;
    return count;
}

}  // namespace

void COverlayBitmaps::Load(HINSTANCE module) {
    static_assert(OverlayCount() <= kMost);
    Release();
    for (const IdRange& range : kOverlays) {
        for (uint32_t id = range.first; id <= range.last; ++id) {
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
