// The camera screen's way from an empty dialog to the first live frame.
#include "app/camera_dlg.h"
#include "app/language.h"
#include "device/preview_mode.h"
#include "device/watchdog.h"
#include "framework/program_module.h"
#include "resources/resource.h"

// The order is part of the program's contract with the shell and the card: keys before windows, windows before the
// card, the card before the buttons.  (CameraScreen.StartUpTrace)
bool CCameraDlg::OnInitDialog() {
    CDialog::OnInitDialog();                                                          //  1
    m_camera.device.failures = 0;                                                     //  2
    SendMessageW(Hwnd(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(m_icon));     //  3
    SendMessageW(Hwnd(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(m_icon));
    m_module = ProgramModule();                                                       //  4
    m_camera.screen.zoomedSizeSelector = 2;                                           //  5
    m_camera.screen.zoom = 0;
    ChooseLettering();                                                                //  6
    s_current = this;                                                                 //  7
    m_camera.device.eventWindow = Hwnd();
    m_camera.texts.language = LanguageIndex(m_lcid);                                  //  8
    const bool texts = LoadTexts(m_camera.texts);                                     //  9
    SetWindowTextW(Hwnd(), LookUpText(m_camera.texts, kTextTitle));                   // 10
    m_hotKeys.LoadCoreLibrary();                                                      // 11
    m_hotKeys.Register(Hwnd());                                                       // 12
    CreateMenuBar();                                                                  // 13
    CreateLiveView();                                                                 // 14
    m_camera.screen.mode = CaptureMode::still;                                        // 15
    m_camera.recording.recording = false;
    m_camera.screen.captureInProgress = false;
    if (!texts) ShowMessage(L"\\Windows\\Localization.dll is missing or damaged: texts cannot be shown.", L"Camera", MB_ICONHAND);
    if (!ConnectCamera()) ExitThread(0);                                              // 16
    SetEventWindow(m_camera.device);                                                  // 17
    LoadScreenBitmaps();                                                              // 18
    SelectHeader();                                                                   // 19
    SendImageParams(m_camera.device, m_camera.settings);                              // 20
    StartWatchdog();                                                                  // 21
    m_buttons.CreateWindows(Hwnd(), m_module);                                        // 22
    RestartLiveStream();                                                              // 23
    StartForegroundWatcher(m_foreground, Hwnd());                                     // 24
    return true;                                                                      // 25
}

void CCameraDlg::ChooseLettering() {
    m_lcid = GetSystemDefaultLCID();
    m_strip.SetLettering(LetteringSet(m_lcid));
}

void CCameraDlg::CreateLiveView() {
    static constexpr RECT kBounds = {0, 0, kStripWidth, kStripTop};
    m_liveView.CreateIn(Hwnd(), kBounds);
    m_camera.device.previewWindow = m_liveView.Hwnd();
}

// Without a camera there is nothing to show and nothing to tear down: the thread, and with it the program, ends here.
bool CCameraDlg::ConnectCamera() {
    if (OpenCamera(m_camera.device)) return true;
    ShowCaption(LookUpText(m_camera.texts, kTextNoCamera), MB_ICONHAND);
    return false;
}

void CCameraDlg::LoadScreenBitmaps() {
    m_overlays.Load(m_module);
    m_buttons.Load(m_module);
    m_strip.Load(m_module, m_camera.screen.mode, m_camera.settings.aviResolution);
}

void CCameraDlg::SelectHeader() {
    SelectPreviewHeader(m_camera.frame, m_camera.screen.scaleCode, m_camera.settings.aviResolution, m_camera.screen.zoom);
}

void CCameraDlg::StartWatchdog() {
    m_camera.device.activity = kActivityAtStart;
    m_watchdog = SetTimer(Hwnd(), kWatchdogTimer, kWatchdogPeriod, nullptr);
}
