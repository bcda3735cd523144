// Text cut into the pieces that a line may hold.  Portable.
#pragma once
#include <string>
#include <vector>

#include "handheld/peghelp/help_page.h"

namespace help {

// Text that is never cut, unless it is wider than a whole line.
struct Piece {
    std::wstring text;
    const Run* run;    // whose text it is
    bool blankBefore;  // a blank lies before it, where the line may break
    bool breakBefore;  // the line may break before it, with or without a blank
    bool newLine;      // it begins a line
};

// Words are pieces; so is every Chinese character, but closing punctuation stays with what it closes and
// opening punctuation with what it opens.  A key's name is one piece.  The pieces point into `runs`.
std::vector<Piece> CutIntoPieces(const Runs& runs);

}  // namespace help
