#include <windows.h>

// Copies all of a picture but one colour, stretched where the sizes differ.  The source is a device context
// or a bitmap that is selected into none.
extern "C" BOOL WINAPI HandheldTransparentImage(HDC to, LONG toX, LONG toY, LONG toWidth, LONG toHeight,
                                                HANDLE from, LONG fromX, LONG fromY, LONG fromWidth,
                                                LONG fromHeight, COLORREF transparent) {
    if (GetObjectType(from) != OBJ_BITMAP)
        return GdiTransparentBlt(to, toX, toY, toWidth, toHeight, static_cast<HDC>(from), fromX, fromY,
                                 fromWidth, fromHeight, transparent);
    HDC source = CreateCompatibleDC(to);
    if (!source) return FALSE;
    BOOL done = FALSE;
    if (HGDIOBJ before = SelectObject(source, from)) {
        done = GdiTransparentBlt(to, toX, toY, toWidth, toHeight, source, fromX, fromY, fromWidth, fromHeight,
                                 transparent);
        SelectObject(source, before);
    } else {
        SetLastError(ERROR_INVALID_HANDLE);
    }
    DeleteDC(source);
    return done;
}
