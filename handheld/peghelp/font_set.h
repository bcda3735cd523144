// The fonts of a help page.
#pragma once
#include <windows.h>

#include <unordered_map>

#include "handheld/peghelp/page_layout.h"

namespace help {

class CFontSet : public CTextMeasure {
  public:
    explicit CFontSet(LCID locale);
    ~CFontSet() override;
    CFontSet(const CFontSet&) = delete;
    CFontSet& operator=(const CFontSet&) = delete;

    int Width(Face face, const std::wstring& text) const override;
    int Height(Face face) const override;
    HFONT Font(Face face) const { return m_fonts[static_cast<int>(face)]; }

  private:
    static constexpr int kFaces = 6;

    // How far a character moves the pen when it is drawn.
    int Advance(Face face, wchar_t character) const;

    HDC m_canvas;  // for measuring
    HFONT m_fonts[kFaces];
    mutable std::unordered_map<wchar_t, int> m_advances[kFaces];  // of the characters met so far
};

}  // namespace help
