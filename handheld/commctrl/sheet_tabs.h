// The tabs along a sheet's bottom edge: a tab control that looks as the Pocket PC's.
#pragma once
#include <windows.h>

#include <string>

namespace handheld {

class CSheetTabs {
  public:
    CSheetTabs() = default;
    ~CSheetTabs();
    CSheetTabs(const CSheetTabs&) = delete;
    CSheetTabs& operator=(const CSheetTabs&) = delete;

    // Makes the strip, as tall as its font wants; the sheet gets the control's TCN_ notifications.
    void Create(HWND sheet);
    void Add(const std::wstring& title);
    void Select(size_t tab) const;
    size_t Selected() const;

    HWND Window() const { return m_window; }
    HFONT Font() const { return m_font; }
    int Height() const { return m_height; }

  private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void OnPaint() const;
    void DrawTab(HDC to, int tab) const;

    HWND m_window = nullptr;
    WNDPROC m_before = nullptr;
    HFONT m_font = nullptr;
    int m_height = 0;
};

}  // namespace handheld
