#include "framework/dialog_placement.h"

#include <algorithm>

void FillScreen(HWND dialog, DWORD flags) {
    SHINITDLGINFO info = {SHIDIM_FLAGS, dialog, flags};
    SHInitDialog(&info);
}

void CentreInOwner(HWND dialog) {
    RECT free;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &free, 0);
    RECT around = free;
    if (const HWND owner = GetParent(dialog)) GetWindowRect(owner, &around);
    RECT own;
    GetWindowRect(dialog, &own);
    const LONG width = own.right - own.left;
    const LONG height = own.bottom - own.top;
    const LONG left = (around.left + around.right - width) / 2;
    const LONG top = (around.top + around.bottom - height) / 2;
    SetWindowPos(dialog, nullptr, std::max(free.left, std::min(left, free.right - width)),
                 std::max(free.top, std::min(top, free.bottom - height)), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}
