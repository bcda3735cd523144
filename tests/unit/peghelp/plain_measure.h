// Fonts for tests: every character is 10 pixels wide, every line 20 high.
#pragma once
#include "handheld/peghelp/page_layout.h"

namespace help {

class CPlainMeasure : public CTextMeasure {
  public:
    int Width(Face, const std::wstring& text) const override { return static_cast<int>(text.size()) * 10; }
    int Height(Face) const override { return 20; }
};

}  // namespace help
