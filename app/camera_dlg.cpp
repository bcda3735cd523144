#include "app/camera_dlg.h"

#include "app/posted_messages.h"
#include "device/watchdog.h"
#include "framework/paint_scope.h"
#include "framework/program_module.h"
#include "resources/resource.h"
#include "settings/help.h"

CCameraDlg::CCameraDlg(CameraRecords& camera, Profile& profile)
    : CDialog(IDD_CAMERA, Placement::screen),
      m_camera(camera),
      m_profile(profile),
      m_view{camera.settings, profile, camera.screen, camera.device, camera.frame, camera.decoder, camera.image, camera.recording},
      m_capture{camera.settings, profile, camera.screen, camera.device, camera.decoder, camera.image, camera.review},
      m_icon(LoadIconW(ProgramModule(), MAKEINTRESOURCEW(IDI_CAMERA))),
      m_liveView(m_view, m_overlays, camera.texts) {}

Reply CCameraDlg::OnMessage(const Message& message) {
    using On = HandlersOf<CCameraDlg>;
    static constexpr MessageRow rows[] = {
        On::message<kMsgSelfTimerFire, &CCameraDlg::OnSelfTimerFire>,
        On::message<kMsgClockTick, &CCameraDlg::OnClockTick>,
        On::message<WM_PAINT, &CCameraDlg::OnPaint>,
        On::message<WM_TIMER, &CCameraDlg::OnTimer>,
        On::message<WM_DESTROY, &CCameraDlg::OnDestroy>,
        On::message<WM_HELP, &CCameraDlg::OnHelp>,
        On::command<ID_FILE_EXIT, &CCameraDlg::OnExit>,
        On::command<ID_FILE_MENU, &CCameraDlg::OnMenu>,
        On::command<ID_FILE_PLAY, &CCameraDlg::OnPlay>,
        On::command<ID_FILE_ABOUT, &CCameraDlg::OnAbout>,
        On::message<WM_DRAWITEM, &CCameraDlg::OnDrawItem>,
        On::command<ID_MODE_VIDEO, &CCameraDlg::OnVideo>,
        On::command<ID_MODE_STILL, &CCameraDlg::OnStill>,
    };
    return Dispatch<rows, CDialog>(*this, message);
}

// Takes a picture at once, whether a countdown runs or not, and leaves that alone: who posts this as well as letting
// the live view count gets two.  (SelfTimerMessage.TakesAPictureAtOnce)
void CCameraDlg::OnSelfTimerFire() {
    InvalidateStrip();
    TakeSnapshot(m_capture, m_camera.settings.resolution);
}

void CCameraDlg::OnClockTick() { InvalidateStrip(); }

void CCameraDlg::OnPaint() {
    const CPaintScope paint(Hwnd());
    m_strip.Paint(paint.Dc());
}

Then CCameraDlg::OnTimer(UINT_PTR) {
    const AfterTick after = TickWatchdog(m_camera.device, m_camera.settings.aviResolution, m_camera.screen.zoom);
    return after == AfterTick::baseHandling ? Then::defaultHandling : Then::done;
}

Then CCameraDlg::OnHelp() {
    ShowHelp();
    return Then::defaultHandling;
}

Then CCameraDlg::OnDrawItem(UINT, const DRAWITEMSTRUCT& item) {
    m_buttons.Draw(item);
    return Then::defaultHandling;
}

void CCameraDlg::InvalidateStrip() {
    static constexpr RECT kStrip = {0, kStripTop, kStripWidth, kStripTop + kStripHeight};
    InvalidateRect(Hwnd(), &kStrip, FALSE);
}

// Presses of the shutter that were waiting reach the screen under its own message box, too: without room each would
// open another one inside the one before.  (FullStore.WaitingPressesOpenNoFurtherBox)
void CCameraDlg::ShowCaption(const wchar_t* text, UINT style) {
    if (m_showingMessage) return;
    m_showingMessage = true;
    ShowMessage(text, LookUpText(m_camera.texts, kTextTitle), style);
    m_showingMessage = false;
}

void CCameraDlg::EnableCaptureMenus(bool enabled) const {
    for (const UINT id : {ID_FILE_PLAY, ID_FILE_MENU, ID_FILE_ABOUT, ID_MODE_STILL, ID_MODE_VIDEO})
        m_menuBar.Enable(id, enabled);
}
