// The help viewer's screen: one page that scrolls, its links, and the way back.
#pragma once
#include <vector>

#include "handheld/companion/companion_screen.h"
#include "handheld/companion/language.h"
#include "handheld/peghelp/font_set.h"
#include "handheld/peghelp/help_page.h"
#include "handheld/peghelp/page_layout.h"

namespace help {

class CHelpWindow : public handheld::CCompanionScreen {
  public:
    explicit CHelpWindow(const std::wstring& page);

  protected:
    std::wstring Title() const override;
    std::vector<handheld::ToolButton> Buttons() const override;
    void PaintBody(HDC to) override;
    void OnBodyDown(POINT at) override;
    void OnBodyDrag(POINT from, POINT to) override;
    bool OnBodyCursor(POINT at) override;
    void OnCreated() override;
    void OnButton(int id) override;
    void OnKey(WPARAM key) override;
    void OnWheel(int steps) override;
    void OnScroll(int request, int position) override;

  private:
    Page MissingPage() const;
    int LowestTop() const;  // the top at the page's end
    int PageStep() const;
    void ScrollTo(int top);
    void GoTo(int top);  // the same, and remembers where the page stood
    void GoBack();
    void Follow(int link);
    void SelectLink(int direction);
    int LinkAt(POINT at) const;  // -1: none
    void UpdateScrollBar();
    void DrawPlaced(HDC to, const PlacedText& text) const;
    void DrawBar(HDC to, const PlacedBar& bar) const;

    const handheld::Language m_language;
    const std::wstring m_pageName;
    const CFontSet m_fonts;
    Page m_page;
    PageLayout m_layout;
    std::vector<int> m_before;  // tops to go back to
    int m_top = 0;              // the page's row at the top of the body, less the margin
    int m_selected = -1;        // the link that Enter follows
    HWND m_scrollBar = nullptr;
};

}  // namespace help
