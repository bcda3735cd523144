// Where everything on a help page lies.  Portable: fonts are asked through an interface.
#pragma once
#include <string>
#include <vector>

#include "handheld/peghelp/help_page.h"

namespace help {

enum class Face { text, bold, key, heading1, heading2, heading3 };

class CTextMeasure {
  public:
    virtual ~CTextMeasure() = default;
    virtual int Width(Face face, const std::wstring& text) const = 0;  // pixels, at least 0
    virtual int Height(Face face) const = 0;                           // of a line, at least 1
};

struct PlacedText {
    int x, y, width, height;
    Face face;
    int link;  // number of its link, or -1
    std::wstring text;
};

struct PlacedBar {
    enum Kind {
        band,
        strongLine,
        faintLine
    } kind;  // behind a heading; under one or a table's head; between rows
    int x, y, width, height;
};

struct PlacedAnchor {
    std::wstring name;
    int y;
};

struct PageLayout {
    int height = 0;
    std::vector<PlacedText> texts;  // from top to bottom, except for the cells of a row
    std::vector<PlacedBar> bars;
    std::vector<PlacedAnchor> anchors;
    std::vector<std::wstring> links;  // the anchor that each link leads to; one link may have several texts

    // Of an anchor; -1 when the page has none of that name.
    int AnchorY(const std::wstring& name) const;
};

inline constexpr int kKeyPadding = 3;  // between a key's name and its frame, left and right

// `width` is at least 40 pixels.
PageLayout LayOut(const Page& page, int width, const CTextMeasure& measure);

}  // namespace help
