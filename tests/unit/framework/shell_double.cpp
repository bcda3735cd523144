#include "shell_double.h"

namespace {

LRESULT CALLBACK BarProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    // The menu hangs on the bar as a property, as any pointer would.
    if (message == SHCMBM_GETMENU) return reinterpret_cast<LRESULT>(GetPropW(hwnd, L"menu"));
    if (message == WM_DESTROY) DestroyMenu(static_cast<HMENU>(RemovePropW(hwnd, L"menu")));
    return DefWindowProcW(hwnd, message, wParam, lParam);
}

}  // namespace

ShellCalls& TestShell() {
    static ShellCalls calls;
    return calls;
}

BOOL WINAPI SHInitDialog(SHINITDLGINFO* info) {
    TestShell().initDialog.push_back(*info);
    return SetWindowPos(info->hDlg, nullptr, 0, 26, 240, 268, SWP_NOZORDER);
}

BOOL WINAPI SHCreateMenuBar(SHMENUBARINFO* info) {
    TestShell().createMenuBar.push_back(*info);
    if (TestShell().refuseMenuBar) return FALSE;
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = &BarProcedure;
    windowClass.hInstance = info->hInstRes;
    windowClass.lpszClassName = L"TestMenuBar";
    RegisterClassW(&windowClass);
    info->hwndMB = CreateWindowExW(0, L"TestMenuBar", nullptr, WS_CHILD, 0, 0, 240, 26, info->hwndParent,
                                   nullptr, info->hInstRes, nullptr);
    SetPropW(info->hwndMB, L"menu", LoadMenuW(info->hInstRes, MAKEINTRESOURCEW(info->nToolBarId)));
    return TRUE;
}
