// What the viewer's body looks like.
#include <algorithm>

#include "handheld/coredll/look.h"
#include "handheld/korvoimgview/resample.h"
#include "handheld/korvoimgview/viewer_window.h"

using handheld::FillColour;
using handheld::kBodyHeight;
using handheld::kBodyWidth;

namespace viewer {
namespace {

constexpr COLORREF kPaper = RGB(28, 28, 32);
constexpr uint32_t kPaperPixel = 0x1C1C20;  // the same as the pictures hold it
constexpr COLORREF kText = RGB(236, 236, 236);
constexpr COLORREF kTrack = RGB(88, 88, 96);
constexpr COLORREF kPlayed = RGB(255, 196, 64);
constexpr int kMessageMargin = 20;

constexpr int kProgressHeight = 26;
constexpr RECT kTrackBox = {44, kBodyHeight - 15, kBodyWidth - 44, kBodyHeight - 11};
constexpr RECT kPlayedTimeBox = {4, kBodyHeight - kProgressHeight, 40, kBodyHeight};
constexpr RECT kLengthBox = {kBodyWidth - 40, kBodyHeight - kProgressHeight, kBodyWidth - 4, kBodyHeight};

constexpr RECT kZoomBox = {4, kBodyHeight - 20, 46, kBodyHeight - 4};

void DrawPixels(HDC to, const Pixels& pixels) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, pixels.width, -pixels.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    SetDIBitsToDevice(to, 0, 0, static_cast<DWORD>(pixels.width), static_cast<DWORD>(pixels.height), 0, 0, 0,
                      static_cast<UINT>(pixels.height), pixels.data.data(), &info, DIB_RGB_COLORS);
}

void DrawLine(HDC to, const std::wstring& text, RECT box, UINT format) {
    DrawTextW(to, text.c_str(), -1, &box, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | format);
}

}  // namespace

Size CViewerWindow::Area() const {
    return {kBodyWidth, m_movie ? kBodyHeight - kProgressHeight : kBodyHeight};
}

void CViewerWindow::PaintBody(HDC to) {
    FillColour(to, {0, 0, kBodyWidth, kBodyHeight}, kPaper);
    SetBkMode(to, TRANSPARENT);
    SetTextColor(to, kText);
    if (!Shown()) return DrawMessage(to);
    DrawPicture(to);
    HGDIOBJ before = SelectObject(to, TextFont());
    if (m_movie)
        DrawProgress(to);
    else if (m_view.scale != Fit())
        DrawZoom(to);
    SelectObject(to, before);
}

void CViewerWindow::DrawPicture(HDC to) const {
    const Pixels& picture = *Shown();
    const Size area = Area();
    Pixels drawn;
    drawn.Allocate(area.width, area.height);
    DrawView(picture, m_movie ? FitView({picture.width, picture.height}, area) : m_view, kPaperPixel, drawn);
    DrawPixels(to, drawn);
}

void CViewerWindow::DrawMessage(HDC to) const {
    HGDIOBJ before = SelectObject(to, BoldFont());
    const wchar_t* text = TextFor(m_message, m_language);
    RECT box = {kMessageMargin, 0, kBodyWidth - kMessageMargin, 0};
    DrawTextW(to, text, -1, &box, DT_WORDBREAK | DT_CENTER | DT_NOPREFIX | DT_CALCRECT);
    const int height = box.bottom;
    box = {kMessageMargin, (kBodyHeight - height) / 2, kBodyWidth - kMessageMargin,
           (kBodyHeight + height) / 2};
    DrawTextW(to, text, -1, &box, DT_WORDBREAK | DT_CENTER | DT_NOPREFIX);
    SelectObject(to, before);
}

void CViewerWindow::DrawProgress(HDC to) const {
    const uint64_t position = m_movie->Position(), length = m_movie->Length();
    RECT played = kTrackBox;
    played.right = played.left + static_cast<LONG>((kTrackBox.right - kTrackBox.left) * position / length);
    FillColour(to, kTrackBox, kTrack);
    FillColour(to, played, kPlayed);
    DrawLine(to, TimeText(position), kPlayedTimeBox, DT_LEFT);
    DrawLine(to, TimeText(length), kLengthBox, DT_RIGHT);
}

// How large a picture stands that is not seen as a whole, in per cent of its own size.
void CViewerWindow::DrawZoom(HDC to) const {
    FillColour(to, kZoomBox, kPaper);
    DrawLine(to, std::to_wstring((uint64_t{m_view.scale} * 100 + kWhole / 2) / kWhole) + L" %", kZoomBox,
             DT_CENTER);
}

bool CViewerWindow::IsOnProgress(POINT at) const {
    return at.y >= kBodyHeight - kProgressHeight;
}

void CViewerWindow::SeekTo(LONG x) {
    const LONG along = std::clamp(x, kTrackBox.left, kTrackBox.right) - kTrackBox.left;
    const LONG width = kTrackBox.right - kTrackBox.left;
    m_movie->MoveTo(m_movie->Length() * static_cast<uint64_t>(along) / static_cast<uint64_t>(width));
    m_movie->Advance();
    Refresh();
}

}  // namespace viewer
