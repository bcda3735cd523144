#include "handheld/peghelp/help_window.h"

#include <algorithm>

#include "handheld/peghelp/body_measures.h"
#include "handheld/peghelp/page_file.h"
#include "handheld/peghelp/texts.h"

using handheld::Icon;
using handheld::kBody;
using handheld::kBodyHeight;

namespace help {
namespace {

constexpr int kLineStep = 28;  // pixels, about two lines
constexpr int kWheelStep = 48;

enum Button { kBack, kContents, kPageUp, kPageDown };

}  // namespace

CHelpWindow::CHelpWindow(const std::wstring& page)
    : m_language(handheld::LanguageOf(Locale())), m_pageName(page), m_fonts(Locale()) {
    const auto html = LoadPage(page, m_language);
    m_page = html ? ReadPage(*html) : MissingPage();
    m_layout = LayOut(m_page, kTextWidth, m_fonts);
}

Page CHelpWindow::MissingPage() const {
    Page page;
    Block what, name;
    what.runs = {{TextFor(Text::missing, m_language), false, false, {}}};
    name.runs = {{m_pageName, true, false, {}}};
    page.blocks = {what, name};
    return page;
}

void CHelpWindow::OnCreated() {
    m_scrollBar =
        CreateWindowExW(0, L"SCROLLBAR", L"", WS_CHILD | WS_VISIBLE | SBS_VERT, kBody.right - kScrollBarWidth,
                        kBody.top, kScrollBarWidth, kBodyHeight, Window(), nullptr, nullptr, nullptr);
    UpdateScrollBar();
}

void CHelpWindow::UpdateScrollBar() {
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = LowestTop() + kBodyHeight - 1;
    info.nPage = kBodyHeight;
    info.nPos = m_top;
    SetScrollInfo(m_scrollBar, SB_CTL, &info, TRUE);
    ShowWindow(m_scrollBar, LowestTop() > 0 ? SW_SHOW : SW_HIDE);
}

int CHelpWindow::LowestTop() const {
    return std::max(m_layout.height + 2 * kMargin - kBodyHeight, 0);
}

// One line of the old page stays in sight.
int CHelpWindow::PageStep() const {
    return kBodyHeight - m_fonts.Height(Face::text);
}

void CHelpWindow::ScrollTo(int top) {
    m_top = std::clamp(top, 0, LowestTop());
    UpdateScrollBar();
    Refresh();
}

void CHelpWindow::GoTo(int top) {
    if (std::clamp(top, 0, LowestTop()) == m_top) return;
    m_before.push_back(m_top);
    ScrollTo(top);
}

void CHelpWindow::GoBack() {
    if (m_before.empty()) return;
    const int top = m_before.back();
    m_before.pop_back();
    ScrollTo(top);
}

void CHelpWindow::Follow(int link) {
    const int y = m_layout.AnchorY(m_layout.links[static_cast<size_t>(link)]);
    if (y >= 0) GoTo(y);
}

// To the next link on the screen in that direction, or to the first one that is on the screen.
void CHelpWindow::SelectLink(int direction) {
    const auto shown = [&](const PlacedText& text) {
        return text.link >= 0 && text.y + kMargin >= m_top &&
               text.y + kMargin + text.height <= m_top + kBodyHeight;
    };
    int first = -1, last = -1;
    for (const PlacedText& text : m_layout.texts) {
        if (!shown(text)) continue;
        if (first < 0) first = text.link;
        last = text.link;
    }
    const int next = m_selected + direction;
    if (m_selected < first || m_selected > last)
        m_selected = direction > 0 ? first : last;
    else if (next >= first && next <= last)
        m_selected = next;
    Refresh();
}

int CHelpWindow::LinkAt(POINT at) const {
    const int x = static_cast<int>(at.x) - kMargin, y = static_cast<int>(at.y) + m_top - kMargin;
    for (const PlacedText& text : m_layout.texts)
        if (text.link >= 0 && x >= text.x && x < text.x + text.width && y >= text.y &&
            y < text.y + text.height)
            return text.link;
    return -1;
}

void CHelpWindow::OnBodyDown(POINT at) {
    m_selected = LinkAt(at);
    if (m_selected >= 0) Follow(m_selected);
}

void CHelpWindow::OnBodyDrag(POINT from, POINT to) {
    ScrollTo(m_top + from.y - to.y);
}

bool CHelpWindow::OnBodyCursor(POINT at) {
    if (LinkAt(at) < 0) return false;
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
    return true;
}

void CHelpWindow::OnButton(int id) {
    switch (id) {
        case kBack:
            return GoBack();
        case kContents:
            return GoTo(0);
        case kPageUp:
            return ScrollTo(m_top - PageStep());
        case kPageDown:
            return ScrollTo(m_top + PageStep());
    }
}

void CHelpWindow::OnKey(WPARAM key) {
    switch (key) {
        case VK_UP:
            return ScrollTo(m_top - kLineStep);
        case VK_DOWN:
            return ScrollTo(m_top + kLineStep);
        case VK_PRIOR:
            return ScrollTo(m_top - PageStep());
        case VK_NEXT:
        case VK_SPACE:
            return ScrollTo(m_top + PageStep());
        case VK_HOME:
            return GoTo(0);
        case VK_END:
            return GoTo(LowestTop());
        case VK_TAB:
            return SelectLink(GetKeyState(VK_SHIFT) < 0 ? -1 : 1);
        case VK_RETURN:
            if (m_selected >= 0) Follow(m_selected);
            return;
        case VK_LEFT:
        case VK_BACK:
            return GoBack();
        case VK_ESCAPE:
            return Close();
    }
}

void CHelpWindow::OnWheel(int steps) {
    ScrollTo(m_top - steps * kWheelStep);
}

void CHelpWindow::OnScroll(int request, int position) {
    switch (request) {
        case SB_LINEUP:
            return ScrollTo(m_top - kLineStep);
        case SB_LINEDOWN:
            return ScrollTo(m_top + kLineStep);
        case SB_PAGEUP:
            return ScrollTo(m_top - PageStep());
        case SB_PAGEDOWN:
            return ScrollTo(m_top + PageStep());
        case SB_THUMBTRACK:
            return ScrollTo(position);
    }
}

std::vector<handheld::ToolButton> CHelpWindow::Buttons() const {
    return {{kBack, Icon::back, !m_before.empty()},
            {kContents, Icon::contents, m_top > 0},
            {kPageUp, Icon::up, m_top > 0},
            {kPageDown, Icon::down, m_top < LowestTop()}};
}

std::wstring CHelpWindow::Title() const {
    return m_page.title.empty() ? TextFor(Text::help, m_language) : m_page.title;
}

}  // namespace help
