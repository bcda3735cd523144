#include "framework/menu_bar.h"

#include "framework/program_module.h"

bool CMenuBar::Create(HWND parent, UINT resourceId) {
    Destroy();
    SHMENUBARINFO info = {};
    info.cbSize = sizeof info;
    info.hwndParent = parent;
    info.nToolBarId = resourceId;
    info.hInstRes = ProgramModule();
    if (!SHCreateMenuBar(&info)) return false;
    m_hwnd = info.hwndMB;
    return m_hwnd != nullptr;
}

void CMenuBar::Destroy() {
    if (const HWND hwnd = Hwnd()) DestroyWindow(hwnd);
    m_hwnd = nullptr;
}

HMENU CMenuBar::Menu() const {
    return reinterpret_cast<HMENU>(SendMessageW(m_hwnd, SHCMBM_GETMENU, 0, 0));
}

void CMenuBar::Enable(UINT command, bool enabled) const {
    if (Hwnd()) EnableMenuItem(Menu(), command, MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
}

void CMenuBar::Check(UINT command, bool checked) const {
    if (Hwnd()) CheckMenuItem(Menu(), command, MF_BYCOMMAND | (checked ? MF_CHECKED : MF_UNCHECKED));
}
