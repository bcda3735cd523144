// Command bars: the handheld's older menu strip at a window's top, here a plain toolbar.
#include <windows.h>

#include <commctrl.h>

extern "C" {

HWND WINAPI CommandBar_Create(HINSTANCE module, HWND parent, int id) {
    INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    HWND bar =
        CreateWindowExW(0, TOOLBARCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | CCS_TOP | TBSTYLE_FLAT, 0, 0, 0, 0,
                        parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), module, nullptr);
    SendMessageW(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(bar, TB_AUTOSIZE, 0, 0);
    return bar;
}

int WINAPI CommandBar_Height(HWND bar) {
    RECT place;
    return GetWindowRect(bar, &place) ? place.bottom - place.top : 0;
}

BOOL WINAPI CommandBar_Show(HWND bar, BOOL show) {
    const BOOL shown = IsWindowVisible(bar);
    ShowWindow(bar, show ? SW_SHOW : SW_HIDE);
    return shown;
}

}  // extern "C"
