// What the help viewer's body looks like.
#include "handheld/coredll/look.h"
#include "handheld/peghelp/body_measures.h"
#include "handheld/peghelp/help_window.h"

using handheld::FillColour;
using handheld::kBodyHeight;
using handheld::kBodyWidth;

namespace help {
namespace {

constexpr COLORREF kText = RGB(0, 0, 0);
constexpr COLORREF kHeading = RGB(0, 0, 128);
constexpr COLORREF kLink = RGB(0, 0, 208);
constexpr COLORREF kBarColours[] = {RGB(220, 226, 244), RGB(0, 0, 128),
                                    RGB(200, 200, 208)};  // as in PlacedBar
constexpr COLORREF kKeyPaper = RGB(240, 240, 236);
constexpr COLORREF kKeyFrame = RGB(136, 136, 136);

bool IsHeading(Face face) {
    return face == Face::heading1 || face == Face::heading2 || face == Face::heading3;
}

void DrawKeyFrame(HDC to, const RECT& box) {
    HBRUSH paper = CreateSolidBrush(kKeyPaper);
    HPEN frame = CreatePen(PS_SOLID, 1, kKeyFrame);
    HGDIOBJ brushBefore = SelectObject(to, paper), penBefore = SelectObject(to, frame);
    RoundRect(to, box.left, box.top, box.right, box.bottom, 4, 4);
    SelectObject(to, brushBefore);
    SelectObject(to, penBefore);
    DeleteObject(paper);
    DeleteObject(frame);
}

}  // namespace

void CHelpWindow::PaintBody(HDC to) {
    FillColour(to, {0, 0, kBodyWidth, kBodyHeight}, handheld::kBodyColour);
    SetBkMode(to, TRANSPARENT);
    const int first = m_top - kMargin, end = first + kBodyHeight;
    for (const PlacedBar& bar : m_layout.bars)
        if (bar.y + bar.height > first && bar.y < end) DrawBar(to, bar);
    for (const PlacedText& text : m_layout.texts)
        if (text.y + text.height > first && text.y < end) DrawPlaced(to, text);
}

void CHelpWindow::DrawBar(HDC to, const PlacedBar& bar) const {
    const int x = kMargin + bar.x, y = kMargin + bar.y - m_top;
    FillColour(to, {x, y, x + bar.width, y + bar.height}, kBarColours[bar.kind]);
}

void CHelpWindow::DrawPlaced(HDC to, const PlacedText& text) const {
    const int x = kMargin + text.x, y = kMargin + text.y - m_top;
    const RECT box = {x, y, x + text.width, y + text.height};
    const bool key = text.face == Face::key;
    if (key) DrawKeyFrame(to, {box.left, box.top, box.right, box.bottom - 1});

    HGDIOBJ before = SelectObject(to, m_fonts.Font(text.face));
    SetTextColor(to, text.link >= 0 ? kLink : IsHeading(text.face) ? kHeading : kText);
    RECT inside = {x + (key ? kKeyPadding : 0), y, box.right, box.bottom - (key ? 1 : 0)};
    DrawTextW(to, text.text.c_str(), -1, &inside, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_NOCLIP);
    SelectObject(to, before);
    if (text.link >= 0) FillColour(to, {x, box.bottom - 2, box.right, box.bottom - 1}, kLink);
    if (text.link >= 0 && text.link == m_selected) DrawFocusRect(to, &box);
}

}  // namespace help
