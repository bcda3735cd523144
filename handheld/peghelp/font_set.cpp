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
    int width = 0;
    for (wchar_t character : text) width += Advance(face, character);
    return width;
}

// Asked of the glyph: where a font has bitmaps, Wine measures a text by the outlines, whose widths differ,
// and an underline or a frame would end beside its word.
int CFontSet::Advance(Face face, wchar_t character) const {
    const auto [entry, isNew] = m_advances[static_cast<int>(face)].try_emplace(character, 0);
    if (!isNew) return entry->second;
    HGDIOBJ before = SelectObject(m_canvas, Font(face));
    const MAT2 asItIs = {{0, 1}, {0, 0}, {0, 0}, {0, 1}};
    GLYPHMETRICS glyph = {};
    SIZE size = {};
    if (GetGlyphOutlineW(m_canvas, character, GGO_BITMAP, &glyph, 0, nullptr, &asItIs) != GDI_ERROR)
        entry->second = glyph.gmCellIncX;
    else if (GetTextExtentPoint32W(m_canvas, &character, 1, &size))
        entry->second = size.cx;
    SelectObject(m_canvas, before);
    return entry->second;
}

int CFontSet::Height(Face face) const {
    TEXTMETRICW metric = {};
    HGDIOBJ before = SelectObject(m_canvas, Font(face));
    GetTextMetricsW(m_canvas, &metric);
    SelectObject(m_canvas, before);
    return static_cast<int>(metric.tmHeight) + kBetweenLines;
}

}  // namespace help
