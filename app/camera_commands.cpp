// What the menu, the on-screen buttons and the hardware keys do.
#include "app/camera_dlg.h"
#include "app/hardware_keys.h"
#include "app/language.h"
#include "app/sound_rules.h"
#include "capture/capture_effects.h"
#include "capture/file_names.h"
#include "device/preview_mode.h"
#include "framework/start_process.h"
#include "resources/resource.h"
#include "settings/about_dlg.h"
#include "settings/counters.h"
#include "settings/setting_sheet.h"

#include <mmsystem.h>

namespace {

// Key repeats that pile up during a capture are dropped, three at the most: enough for a finger that lingers, and
// a fourth press still counts.  (Commands.ActionKeyFlushesThreeMessages)
constexpr int kFlushedMessages = 3;

// The card takes new image parameters meanwhile; then the stream starts with them.
constexpr uint32_t kImageParametersMs = 100;

constexpr uint32_t SelectorAt(uint32_t zoom) { return zoom == 1 ? 2 : 3; }

}  // namespace

bool CCameraDlg::PreTranslateMessage(MSG& message) {
    if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN) return true;  // never closes the screen
    if (message.message == WM_KEYUP) {
        if (message.wParam == kActionKey) OnActionKey();
        for (const HardwareKey& key : kHardwareKeys)
            if (key.key == message.wParam) RunScreenCommand(key.command);
    }
    return CDialog::PreTranslateMessage(message);
}

Then CCameraDlg::OnCommand(UINT id, UINT code, HWND control) {
    // The second of two quick taps arrives as a double click; it counts like any other.
    if ((code == BN_CLICKED || code == BN_DOUBLECLICKED) && RunScreenCommand(id)) return Then::done;
    return CDialog::OnCommand(id, code, control);
}

bool CCameraDlg::RunScreenCommand(UINT id) {
    using Handler = void (CCameraDlg::*)();
    static constexpr struct {
        UINT id;
        Handler handler;
    } kCommands[] = {
        {IDC_SHUTTER, &CCameraDlg::OnShutter}, {IDC_MENU, &CCameraDlg::OnMenu},
        {IDC_PLAY, &CCameraDlg::OnPlay},       {IDC_ZOOM_OUT, &CCameraDlg::OnZoomOut},
        {IDC_ZOOM_IN, &CCameraDlg::OnZoomIn},
    };
    for (const auto& command : kCommands) {
        if (command.id != id) continue;
        (this->*command.handler)();
        return true;
    }
    return false;
}

void CCameraDlg::OnShutter() {
    if (m_camera.screen.mode != CaptureMode::still) return;
    const ShutterResult result = PressShutter(m_capture, GetTickCount());
    if (result == ShutterResult::noSpace) ShowCaptureMessage(CaptureMessage::noSpace);
    if (result == ShutterResult::countdownStarted) m_liveView.StartCountdownClock();
}

void CCameraDlg::OnActionKey() {
    MSG dropped;
    for (int i = 0; i < kFlushedMessages; ++i) PeekMessageW(&dropped, Hwnd(), 0, 0, PM_REMOVE);
    if (m_camera.screen.mode != CaptureMode::still) return;
    // The key tells of a full store in the user's language, the on-screen button in English.
    // (FullStore.TheTwoShuttersWordItDifferently)
    const ShutterResult result = PressShutter(m_capture, GetTickCount());
    if (result == ShutterResult::noSpace)
        ShowCaption(LookUpText(m_camera.texts, kTextNoSpace), MB_ICONHAND);
    if (result == ShutterResult::countdownStarted) m_liveView.StartCountdownClock();
}

// The last picture is the one before the next number, also where the numbers began anew: then the viewer is given a
// name that no picture has.  (Play.AfterTheNumberWrappedAPictureThatDoesNotExistIsNamed)
// Without a viewer the camera stays shut down, and only Exit is left.  (Play.WithoutTheViewerTheCameraStaysShutDown)
void CCameraDlg::OnPlay() {
    StopPreview(m_camera.device);
    ShutDownCamera(m_camera.device);  // the viewer may want the card
    const std::wstring picture = m_camera.screen.picturesTaken != 0
                                     ? PicturePath(m_camera.settings, LastNumber(m_camera.settings.jpgNo))
                                     : std::wstring();
    if (StartProcess(L"\\windows\\korvoimgview.exe", picture.empty() ? nullptr : picture.c_str())) ExitThread(0);
    ShowCaption(L"ERROR::\n Run korvoimgview.exe faile!", MB_OK);
}

// While a dialog is open over the screen its own message loop runs, so the screen may close underneath: then the
// card is released already, and nothing of the screen is left to go on with.  (ClosingUnderADialog.EndsTheProgram)
void CCameraDlg::OnAbout() {
    StopPreview(m_camera.device);
    CAboutDlg(m_camera.texts, m_camera.device).DoModal(Hwnd());
    if (Hwnd() != nullptr) RestartLiveStream();
}

void CCameraDlg::OnMenu() {
    m_menuBar.Destroy();
    CSettingSheet sheet(m_camera.texts);
    StopPreview(m_camera.device);
    const int result = sheet.DoModal(Hwnd());
    if (Hwnd() == nullptr) return;
    if (result == IDOK) {
        SendImageParams(m_camera.device, m_camera.settings);
        PauseMilliseconds(kImageParametersMs);
    }
    LoadScreenBitmaps();
    SelectHeader();
    RestartLiveStream();
    CreateMenuBar();
    CheckMode();
}

void CCameraDlg::CreateMenuBar() { m_menuBar.Create(Hwnd(), kFirstMenu + m_camera.texts.language); }

void CCameraDlg::CheckMode() {
    const bool still = m_camera.screen.mode == CaptureMode::still;
    m_menuBar.Check(ID_MODE_STILL, still);
    m_menuBar.Check(ID_MODE_VIDEO, !still);
}

void CCameraDlg::OnStill() {
    m_camera.screen.mode = CaptureMode::still;
    CheckMode();
    m_strip.Load(m_module, m_camera.screen.mode, m_camera.settings.aviResolution);
    InvalidateRect(Hwnd(), nullptr, FALSE);
}

void CCameraDlg::OnVideo() {
    m_camera.screen.mode = CaptureMode::video;
    CheckMode();
    m_camera.screen.countdownRunning = false;
    SwitchOffStillAids(m_camera.settings, m_profile);
    m_strip.Load(m_module, m_camera.screen.mode, m_camera.settings.aviResolution);
    InvalidateRect(Hwnd(), nullptr, FALSE);
}

// A video size without streams of its own only loses the one that may run.  (ZoomTrace.OfAnUnknownSizeOnlyStops)
void CCameraDlg::OnZoomIn() {
    ScreenState& screen = m_camera.screen;
    if (screen.zoom == kMaxZoom) return;
    ++screen.zoom;
    StopPreview(m_camera.device);
    SelectHeader();
    const int32_t resolution = m_camera.settings.aviResolution;
    if (PreviewMode(resolution, screen.zoom) != 0) screen.zoomedSizeSelector = SelectorAt(screen.zoom);
    RestartLiveStream();
    PlayZoomSound(L"zoomin");
}

void CCameraDlg::OnZoomOut() {
    ScreenState& screen = m_camera.screen;
    if (screen.zoom == 0) return;
    --screen.zoom;
    StopPreview(m_camera.device);
    SelectHeader();
    if (screen.zoom == 1) screen.zoomedSizeSelector = SelectorAt(screen.zoom);
    RestartLiveStream();
    PlayZoomSound(L"zoomout");
}

void CCameraDlg::RestartLiveStream() {
    RestartPreview(m_camera.device, m_camera.settings.aviResolution, m_camera.screen.zoom);
}

void CCameraDlg::PlayZoomSound(const wchar_t* name) const {
    if (IsZoomAudible(m_camera.settings)) PlaySoundW(name, m_module, SND_RESOURCE | SND_ASYNC);
}
