#include "app/camera_app.h"

#include "app/camera_dlg.h"
#include "platform/ce.h"
#include "settings/load_settings.h"

bool CCameraApp::InitInstance() {
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    CCameraDlg screen(m_camera, AppProfile());
    LoadSettings(m_camera.settings, AppProfile());
    SetMainWindow(&screen);
    screen.DoModal(nullptr);
    SetMainWindow(nullptr);
    return false;
}
