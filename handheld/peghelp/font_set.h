// The fonts of a help page.
#pragma once
#include <windows.h>

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

    HDC m_canvas;  // for measuring
    HFONT m_fonts[kFaces];
};

}  // namespace help
