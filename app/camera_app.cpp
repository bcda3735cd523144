#include "app/camera_app.h"

#include "app/camera_dlg.h"
#include "settings/load_settings.h"

bool CCameraApp::InitInstance() {
    CCameraDlg screen(m_camera, AppProfile());
    LoadSettings(m_camera.settings, AppProfile());
    SetMainWindow(&screen);
    screen.DoModal(nullptr);
    SetMainWindow(nullptr);
    return false;
}
