// The ways out of the camera screen.
#include "app/camera_dlg.h"

// Exit: the orderly way.  WM_CLOSE goes straight to OnDestroy instead; the card is released there either way.
void CCameraDlg::OnExit() {
    while (m_camera.screen.captureInProgress) PauseMilliseconds(25);
    ShutDownCamera(m_camera.device);
    CloseCamera(m_camera.device);
    m_buttons.Release();
    CDialog::OnClose();
}

void CCameraDlg::OnDestroy() {
    // After Exit this is the second time: the card takes it without harm, and WM_CLOSE relies on it.
    // A driver's log shows both.  (CameraScreen.ExitTrace)
    ShutDownCamera(m_camera.device);
    if (m_watchdog != 0) KillTimer(Hwnd(), m_watchdog);
    m_watchdog = 0;
    m_hotKeys.Unregister(Hwnd());
    m_hotKeys.ReleaseCoreLibrary();
    m_strip.Release();
    s_current = nullptr;
}
