// Text that flows into lines of a given width.  Portable.
#pragma once
#include "handheld/peghelp/page_layout.h"

namespace help {

// Width of a text in one line.
int WidthOf(const Runs& runs, Face face, const CTextMeasure& measure);

// Places text in lines from (x, y) on, into the layout; `face` is that of plain text.  Returns the y below
// it.
int FlowRuns(const Runs& runs, Face face, int x, int y, int width, const CTextMeasure& measure,
             PageLayout& layout);

}  // namespace help
