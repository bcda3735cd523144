// Asks the compiler whether the records that go to the system are laid out as the handheld has them: sizes
// and offsets in bytes, wherever pointers are as wide as the handheld's; those without a pointer everywhere.
#include "platform/ce.h"

#include <mmsystem.h>

namespace {

constexpr bool kHandheldPointers = sizeof(void*) == 4;

constexpr bool Is(std::size_t actual, std::size_t handheld) {
    return !kHandheldPointers || actual == handheld;
}

// Without pointers: the same in every build.
static_assert(sizeof(wchar_t) == 2 && sizeof(long) == 4 && sizeof(BOOL) == 4);
static_assert(sizeof(RECT) == 16 && sizeof(POINT) == 8 && sizeof(SIZE) == 8);
static_assert(sizeof(SYSTEMTIME) == 16 && sizeof(FILETIME) == 8 && sizeof(ULARGE_INTEGER) == 8);
static_assert(sizeof(LOGFONTW) == 92 && offsetof(LOGFONTW, lfFaceName) == 28);
static_assert(sizeof(BITMAPINFOHEADER) == 40 && sizeof(BITMAPINFO) == 44);
static_assert(sizeof(WAVEFORMATEX) == 18 && offsetof(WAVEFORMATEX, wBitsPerSample) == 14);
static_assert(sizeof(INITCOMMONCONTROLSEX) == 8 && sizeof(DLGTEMPLATE) == 18);

// Windows and messages.
static_assert(Is(sizeof(MSG), 28) && Is(offsetof(MSG, pt), 20));
static_assert(Is(sizeof(WNDCLASSW), 40) && Is(offsetof(WNDCLASSW, lpszClassName), 36));
static_assert(Is(sizeof(CREATESTRUCTW), 48) && Is(offsetof(CREATESTRUCTW, lpszClass), 40));
static_assert(Is(sizeof(PAINTSTRUCT), 64) && Is(offsetof(PAINTSTRUCT, rcPaint), 8));
static_assert(Is(sizeof(DRAWITEMSTRUCT), 48) && Is(offsetof(DRAWITEMSTRUCT, rcItem), 28));
static_assert(Is(sizeof(BITMAP), 24) && Is(offsetof(BITMAP, bmBits), 20));

// Controls.
static_assert(Is(sizeof(NMHDR), 12) && Is(offsetof(NMHDR, code), 8));
static_assert(Is(sizeof(LVCOLUMNW), 32) && Is(offsetof(LVCOLUMNW, pszText), 12));
// What follows in the desktop's is never read: no mask of the program names it.
static_assert(Is(offsetof(LVITEMW, lParam), 32) && Is(offsetof(LVITEMW, iIndent), 36));
static_assert(Is(sizeof(NMLISTVIEW), 44) && Is(offsetof(NMLISTVIEW, lParam), 40));
static_assert(Is(sizeof(TVITEMW), 40) && Is(offsetof(TVITEMW, lParam), 36));
static_assert(Is(sizeof(NMTREEVIEWW), 104) && Is(offsetof(NMTREEVIEWW, itemNew), 56));
static_assert(Is(sizeof(NMTVDISPINFOW), 52) && Is(sizeof(NMCUSTOMDRAW), 48));

// Of these the handheld knows the first version only; the program hands over no other.
static_assert(Is(sizeof(PROPSHEETPAGEW_V1), 40) && Is(offsetof(PROPSHEETPAGEW_V1, lParam), 28));
static_assert(Is(offsetof(PROPSHEETHEADERW, ppsp), 32) && Is(offsetof(PROPSHEETHEADERW, pfnCallback), 36));
static_assert(Is(offsetof(MENUITEMINFOW, cch) + sizeof(UINT), 44) &&
              Is(offsetof(MENUITEMINFOW, dwTypeData), 36));

// The shell.
static_assert(Is(sizeof(SHMENUBARINFO), 32) && Is(offsetof(SHMENUBARINFO, hwndMB), 28));
static_assert(Is(sizeof(SHINITDLGINFO), 12));

// Processes, sound, and a lock: the program's must hold the handheld's 20 bytes.
static_assert(Is(sizeof(PROCESS_INFORMATION), 16));
static_assert(Is(sizeof(WAVEHDR), 32) && Is(offsetof(WAVEHDR, dwFlags), 16));
static_assert(sizeof(CRITICAL_SECTION) >= 20);

}  // namespace
