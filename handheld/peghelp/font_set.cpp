#include "handheld/peghelp/font_set.h"

#include <iterator>

#include "handheld/coredll/look.h"

namespace help {
namespace {

struct Kind {
    int pixels;
    bool bold;
};
// In the order of the faces.  Headings are no larger than text: colour and bars set them apart, and larger
// bold letters come out thin where the desktop's Tahoma is drawn from bitmaps.
constexpr Kind kKinds[] = {{12, false}, {12, true}, {11, false}, {12, true}, {12, true}, {12, true}};
constexpr int kBetweenLines = 2;

}  // namespace

CFontSet::CFontSet(LCID locale) : m_canvas(CreateCompatibleDC(nullptr)) {
    static_assert(std::size(kKinds) == kFaces && static_cast<int>(Face::heading3) == kFaces - 1);
    for (int i = 0; i < kFaces; ++i)
        m_fonts[i] = handheld::CreateShellFont(locale, kKinds[i].pixels, kKinds[i].bold);
}

CFontSet::~CFontSet() {
    DeleteDC(m_canvas);
    for (HFONT font : m_fonts) DeleteObject(font);
}

int CFontSet::Width(Face face, const std::wstring& text) const {
    SIZE size = {};
    HGDIOBJ before = SelectObject(m_canvas, Font(face));
    GetTextExtentPoint32W(m_canvas, text.data(), static_cast<int>(text.size()), &size);
    SelectObject(m_canvas, before);
    return size.cx;
}

int CFontSet::Height(Face face) const {
    TEXTMETRICW metric = {};
    HGDIOBJ before = SelectObject(m_canvas, Font(face));
    GetTextMetricsW(m_canvas, &metric);
    SelectObject(m_canvas, before);
    return static_cast<int>(metric.tmHeight) + kBetweenLines;
}

}  // namespace help
