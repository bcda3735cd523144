#include "liveview/live_view_window.h"

#include "app/posted_messages.h"
#include "capture/review.h"
#include "capture/store_space.h"
#include "device/preview_mode.h"
#include "liveview/background.h"
#include "liveview/canvas.h"
#include "liveview/countdown.h"
#include "liveview/overlay_plan.h"
#include "liveview/picture_fit.h"
#include "liveview/readouts.h"

namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kRed = RGB(255, 32, 32);

constexpr UINT_PTR kCountdownTimer = 1;
constexpr UINT kCountdownPeriod = 250;  // milliseconds

constexpr RECT kCountBounds = {120, -1, 236, 19};
constexpr RECT kHintBounds = {0, 141, 240, 161};
constexpr RECT kResolutionBounds = {4, 160, 136, 180};
constexpr RECT kRateBounds = {120, 141, 236, 161};

// Where a tap means the picture at the small video size, borders in.  It is the live picture's place, although the
// picture under review covers the whole canvas: a tap near its edge does nothing.  (Review.TheTapMustLieOnThePicture)
constexpr RECT kSmallPicture = {kSmallLeft, kSmallTop, 201, 153};

HFONT CreateReadoutFont() {
    LOGFONTW font = {};
    font.lfHeight = 20;
    font.lfWeight = FW_BOLD;
    font.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
    wcscpy(font.lfFaceName, L"Arial");  // the handheld has only its own face and takes that
    return CreateFontIndirectW(&font);
}

}  // namespace

bool CLiveViewWindow::CreateIn(HWND screen, const RECT& bounds) {
    RegisterWindowClass(kLiveViewClass, 0, nullptr);
    buildHuffmanTables(m_view.decoder);
    return Create(kLiveViewClass, L"", WS_CHILD | WS_VISIBLE, 0, bounds, screen, 0);
}

Reply CLiveViewWindow::OnMessage(const Message& message) {
    using On = HandlersOf<CLiveViewWindow>;
    static constexpr MessageRow rows[] = {
        On::message<WM_CREATE, &CLiveViewWindow::OnCreate>,
        On::message<WM_DESTROY, &CLiveViewWindow::OnDestroy>,
        On::message<WM_PAINT, &CLiveViewWindow::OnPaint>,
        On::message<WM_ERASEBKGND, &CLiveViewWindow::OnEraseBackground>,
        On::message<WM_LBUTTONDOWN, &CLiveViewWindow::OnTap>,
        On::message<WM_TIMER, &CLiveViewWindow::OnTimer>,
        On::message<kMsgFrameReady, &CLiveViewWindow::OnFrameReady>,
    };
    return Dispatch<rows, CWindow>(*this, message);
}

void CLiveViewWindow::OnCreate() {
    m_font = CreateReadoutFont();
    for (uint8_t& byte : m_view.device.feedback) byte = 0;
}

void CLiveViewWindow::OnDestroy() {
    if (m_font != nullptr) DeleteObject(m_font);
    m_font = nullptr;
}

void CLiveViewWindow::OnFrameReady() {
    ++m_view.device.activity;
    RunCountdown();
    const FrameOutcome outcome = ReceiveFrame(m_view);
    if (outcome.repaint) InvalidateRect(Hwnd(), nullptr, FALSE);
    if (outcome.stopRecording) PostMessageW(GetParent(Hwnd()), kMsgStopRecording, 0, 0);
}

void CLiveViewWindow::StartCountdownClock() { SetTimer(Hwnd(), kCountdownTimer, kCountdownPeriod, nullptr); }

// Frames drive the countdown; the timer only keeps it going, and the picture coming, when the card sends none.
void CLiveViewWindow::OnTimer(UINT_PTR) {
    if (!m_view.screen.countdownRunning) {
        KillTimer(Hwnd(), kCountdownTimer);
        return;
    }
    RunCountdown();
    InvalidateRect(Hwnd(), nullptr, FALSE);
}

void CLiveViewWindow::RunCountdown() {
    if (AdvanceCountdown(m_view.screen, GetTickCount(), m_view.settings.selfTimer) == CountdownStep::fire)
        SendMessageW(GetParent(Hwnd()), kMsgSelfTimerFire, 0, 0);
}

bool CLiveViewWindow::IsReviewing() const {
    return m_view.screen.reviewShowing && m_view.settings.instantReview != 0;
}

void CLiveViewWindow::OnPaint() {
    PAINTSTRUCT paint;
    const HDC screen = BeginPaint(Hwnd(), &paint);
    if (screen == nullptr) return;
    {
        CCanvas canvas(screen);
        Compose(canvas);
        canvas.CopyTo(screen);
    }
    EndPaint(Hwnd(), &paint);
}

void CLiveViewWindow::Compose(CCanvas& canvas) {
    DrawPicture(canvas);
    DrawOverlays(canvas);
    DrawCount(canvas);
    if (IsReviewing())
        canvas.DrawReadout(L"Click picture to delete", kHintBounds, DT_CENTER | DT_NOPREFIX | DT_NOCLIP, kWhite, m_font);
    wchar_t resolution[16];
    wsprintfW(resolution, L"%s", ResolutionText(m_view.settings, m_view.screen));
    canvas.DrawReadout(resolution, kResolutionBounds, DT_LEFT | DT_NOPREFIX, kWhite, m_font);
    DrawFrameRate(canvas);
    m_view.room.asked = false;
}

// Under review the layout is the other one, so the decoded picture has to be fitted to it.  So has one that
// was decoded before the video size changed.
void CLiveViewWindow::DrawPicture(CCanvas& canvas) const {
    const bool review = m_view.screen.reviewShowing;
    const bool large = IsLargeLayout(m_view.settings.aviResolution, review);
    const bool decodedLarge = m_view.image.mode != kScaleSmall;
    static constexpr PictureSource kLarge = {nullptr, kCanvasWidth, kCanvasHeight};
    static constexpr PictureSource kSmall = {nullptr, kSmallWidth, kSmallHeight};
    PictureSource picture = decodedLarge ? kLarge : kSmall;
    picture.pixels = m_view.image.pixels;
    if (large != decodedLarge) {
        static uint8_t fitted[kCanvasWidth * kCanvasHeight * 3];
        FitPicture(picture, large ? kLarge : kSmall, fitted);
        picture = large ? kLarge : kSmall;
        picture.pixels = fitted;
    }
    if (large) {
        canvas.DrawPicture(picture, 0, 0);
        return;
    }
    if (const uint8_t* const background = BackgroundPixels())
        canvas.DrawPicture({background, kCanvasWidth, kCanvasHeight}, 0, 0);
    canvas.DrawPicture(picture, kSmallLeft, kSmallTop);
}

void CLiveViewWindow::DrawOverlays(CCanvas& canvas) const {
    const OverlayPlan plan = PlanOverlays(m_view.settings, m_view.screen, m_view.recording);
    for (uint32_t i = 0; i < plan.count; ++i)
        if (const OverlayBitmap* const overlay = m_overlays.Find(plan.items[i].bitmap))
            canvas.DrawOverlay(*overlay, plan.items[i].x, plan.items[i].y);
}

void CLiveViewWindow::DrawCount(CCanvas& canvas) {
    const bool still = m_view.screen.mode == CaptureMode::still;
    const uint32_t freeBytes = FreeBytes(m_view.room);
    const uint32_t count = still ? PicturesIn(freeBytes, m_view.settings, m_view.screen)
                                 : VideoSecondsIn(freeBytes, m_view.settings.aviResolution);
    wchar_t text[16];
    wsprintfW(text, L"%d", static_cast<int>(count));
    canvas.DrawReadout(text, kCountBounds, DT_RIGHT | DT_NOPREFIX, still && count < kFewPictures ? kRed : kWhite, m_font);
    if (!still && count == 0 && m_view.recording.recording)
        PostMessageW(GetParent(Hwnd()), kMsgStopRecording, 0, 0);
}

void CLiveViewWindow::DrawFrameRate(CCanvas& canvas) {
    const DWORD now = GetTickCount();
    if (m_previousPaint != 0 && !m_view.screen.reviewShowing) {
        wchar_t text[24];
        wsprintfW(text, L"%ldF/S", static_cast<long>(FrameRate(now - m_previousPaint)));
        canvas.DrawReadout(text, kRateBounds, DT_RIGHT | DT_NOPREFIX, kWhite, m_font);
    }
    m_previousPaint = now;
}

void CLiveViewWindow::OnTap(POINT place) {
    if (!m_view.screen.reviewShowing) return;
    if (m_view.settings.aviResolution == 1 && !PtInRect(&kSmallPicture, place)) return;
    const int answer = MessageBoxW(Hwnd(), LookUpText(m_texts, kTextDeletePicture), LookUpText(m_texts, kTextTitle),
                                   MB_OKCANCEL | MB_ICONEXCLAMATION);
    if (answer == IDOK) DeleteLastPicture(m_view.settings, m_view.profile, m_view.screen);
}
