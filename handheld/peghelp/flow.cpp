#include "handheld/peghelp/flow.h"

#include <algorithm>

#include "handheld/peghelp/line_pieces.h"

namespace help {
namespace {

Face FaceOf(const Run& run, Face plain) {
    if (run.key) return Face::key;
    return run.bold && plain == Face::text ? Face::bold : plain;
}

int PieceWidth(const Piece& piece, Face plain, const CTextMeasure& measure) {
    const int frame = piece.run->key ? 2 * kKeyPadding : 0;
    return measure.Width(FaceOf(*piece.run, plain), piece.text) + frame;
}

class CFlow {
  public:
    CFlow(Face plain, int x, int y, int width, const CTextMeasure& measure, PageLayout& layout)
        : m_plain(plain),
          m_left(x),
          m_width(std::max(width, 1)),
          m_blank(measure.Width(plain, L" ")),
          m_lineHeight(measure.Height(plain)),
          m_measure(measure),
          m_layout(layout),
          m_x(x),
          m_y(y) {}

    int Place(const std::vector<Piece>& pieces) {
        for (size_t first = 0; first < pieces.size();) {
            // Pieces without a break between them share a line.
            size_t end = first + 1;
            while (end < pieces.size() && !pieces[end].breakBefore) ++end;
            PlaceTogether(pieces, first, end);
            first = end;
        }
        return m_y + (pieces.empty() ? 0 : m_lineHeight);
    }

  private:
    bool AtLineStart() const { return m_x == m_left; }

    void PlaceTogether(const std::vector<Piece>& pieces, size_t first, size_t end) {
        int width = 0;
        for (size_t i = first; i < end; ++i) width += PieceWidth(pieces[i], m_plain, m_measure);
        const int blank = pieces[first].blankBefore && !AtLineStart() ? m_blank : 0;
        const bool full = !AtLineStart() && m_x + blank + width > m_left + m_width;
        if (pieces[first].newLine || full)
            NewLine();
        else
            m_x += blank;
        for (size_t i = first; i < end; ++i)
            PlaceText(*pieces[i].run, pieces[i].text, i == first && blank > 0);
    }

    // Cut by characters where it is wider than a line.
    void PlaceText(const Run& run, const std::wstring& text, bool afterBlank) {
        const Face face = FaceOf(run, m_plain);
        const int right = m_left + m_width;
        if (run.key || m_x + m_measure.Width(face, text) <= right) return Append(run, face, text, afterBlank);
        for (size_t at = 0; at < text.size();) {
            size_t count = 1;
            while (at + count < text.size() &&
                   m_x + m_measure.Width(face, text.substr(at, count + 1)) <= right)
                ++count;
            Append(run, face, text.substr(at, count), afterBlank && at == 0);
            at += count;
            if (at < text.size()) NewLine();
        }
    }

    // Joins what belongs to the same run: the line then looks as if written at once.
    void Append(const Run& run, Face face, const std::wstring& text, bool afterBlank) {
        const int frame = run.key ? kKeyPadding : 0;
        if (m_last == &run && !AtLineStart()) {
            PlacedText& before = m_layout.texts.back();
            before.text += (afterBlank ? L" " : L"") + text;
            before.width = m_measure.Width(face, before.text) + 2 * frame;
            m_x = before.x + before.width;
            return;
        }
        const int width = m_measure.Width(face, text) + 2 * frame;
        m_layout.texts.push_back({m_x, m_y, width, m_lineHeight, face, LinkOf(run), text});
        m_x += width;
        m_last = &run;
    }

    int LinkOf(const Run& run) {
        if (run.link.empty()) return -1;
        if (m_linkRun != &run) {
            m_layout.links.push_back(run.link);
            m_linkRun = &run;
        }
        return static_cast<int>(m_layout.links.size()) - 1;
    }

    void NewLine() {
        m_x = m_left;
        m_y += m_lineHeight;
        m_last = nullptr;
    }

    const Face m_plain;
    const int m_left, m_width, m_blank, m_lineHeight;
    const CTextMeasure& m_measure;
    PageLayout& m_layout;
    int m_x, m_y;
    const Run* m_last = nullptr;     // of the last text on this line
    const Run* m_linkRun = nullptr;  // the run that the last link belongs to
};

}  // namespace

int WidthOf(const Runs& runs, Face face, const CTextMeasure& measure) {
    int width = 0;
    for (const Piece& piece : CutIntoPieces(runs))
        width += PieceWidth(piece, face, measure) + (piece.blankBefore ? measure.Width(face, L" ") : 0);
    return width;
}

int FlowRuns(const Runs& runs, Face face, int x, int y, int width, const CTextMeasure& measure,
             PageLayout& layout) {
    return CFlow(face, x, y, width, measure, layout).Place(CutIntoPieces(runs));
}

}  // namespace help
