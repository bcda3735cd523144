#include "handheld/peghelp/page_layout.h"

#include <algorithm>

#include "handheld/peghelp/flow.h"
#include "handheld/peghelp/table_columns.h"

namespace help {
namespace {

constexpr int kGap = 6;          // between paragraphs
constexpr int kItemGap = 3;      // between items of a list
constexpr int kHeadingGap = 14;  // above a heading
constexpr int kIndent = 16;      // of an item, for its marker
constexpr int kMarkerGap = 5;
constexpr int kColumnGap = 8;
constexpr int kRowPadding = 3;
constexpr int kBandPadding = 4;  // around a heading on a band; half of it above and below

Face HeadingFace(int level) {
    return level <= 1 ? Face::heading1 : level == 2 ? Face::heading2 : Face::heading3;
}

Runs Bold(Runs runs) {
    for (Run& run : runs) run.bold = true;
    return runs;
}

class CLayouter {
  public:
    CLayouter(const Page& page, int width, const CTextMeasure& measure)
        : m_page(page), m_width(width), m_measure(measure) {}

    PageLayout Run() {
        const std::vector<Block>& blocks = m_page.blocks;
        for (size_t i = 0; i < blocks.size(); ++i) {
            if (i > 0) m_y += GapBetween(blocks[i - 1], blocks[i]);
            for (const std::wstring& anchor : blocks[i].anchors) m_layout.anchors.push_back({anchor, m_y});
            Place(i);
        }
        m_layout.height = m_y;
        return std::move(m_layout);
    }

  private:
    static int GapBetween(const Block& before, const Block& block) {
        if (block.kind == Block::heading) return before.kind == Block::heading ? kGap : kHeadingGap;
        if (block.kind == Block::row && !block.firstRow) return 0;
        return before.kind == Block::item && block.kind == Block::item ? kItemGap : kGap;
    }

    void Place(size_t at) {
        const Block& block = m_page.blocks[at];
        switch (block.kind) {
            case Block::heading:
                PlaceHeading(block);
                break;
            case Block::paragraph:
                m_y = FlowRuns(block.runs, Face::text, 0, m_y, m_width, m_measure, m_layout);
                break;
            case Block::item:
                PlaceItem(block);
                break;
            case Block::row:
                PlaceRow(at);
                break;
            case Block::rule:
                AddLine(PlacedBar::faintLine, 1);
                break;
        }
    }

    void PlaceHeading(const Block& block) {
        const int top = m_y;
        const int inset = block.level == 2 ? kBandPadding : 0;
        m_y = FlowRuns(block.runs, HeadingFace(block.level), inset, m_y + inset / 2, m_width - 2 * inset,
                       m_measure, m_layout);
        m_y += inset / 2;
        if (block.level <= 1) AddLine(PlacedBar::strongLine, 2);
        if (block.level == 2) m_layout.bars.push_back({PlacedBar::band, 0, top, m_width, m_y - top});
    }

    void AddLine(PlacedBar::Kind kind, int height) {
        m_layout.bars.push_back({kind, 0, m_y + 1, m_width, height});
        m_y += 1 + height;
    }

    void PlaceItem(const Block& block) {
        const int x = std::min(block.level * kIndent, m_width / 2);
        if (!block.marker.empty()) PlaceMarker(block.marker, x);
        m_y = FlowRuns(block.runs, Face::text, x, m_y, m_width - x, m_measure, m_layout);
    }

    // Ends a little before the text, so that numbers of one and of two digits stand well below one another.
    void PlaceMarker(const std::wstring& marker, int textX) {
        const int width = m_measure.Width(Face::text, marker);
        const int x = std::max(textX - kMarkerGap - width, 0);
        m_layout.texts.push_back({x, m_y, width, m_measure.Height(Face::text), Face::text, -1, marker});
    }

    void PlaceRow(size_t at) {
        const Block& block = m_page.blocks[at];
        if (block.firstRow) MeasureTable(at);
        m_y += kRowPadding;
        int x = 0, below = m_y;
        for (size_t i = 0; i < block.cells.size(); ++i) {
            const Runs cell = block.head ? Bold(block.cells[i]) : block.cells[i];
            below = std::max(below, FlowRuns(cell, Face::text, x, m_y, m_columns[i], m_measure, m_layout));
            x += m_columns[i] + kColumnGap;
        }
        m_y = below + kRowPadding - 1;
        AddLine(block.head ? PlacedBar::strongLine : PlacedBar::faintLine, 1);
    }

    void MeasureTable(size_t at) {
        std::vector<int> needs;
        for (size_t row = at; row < m_page.blocks.size(); ++row) {
            const Block& block = m_page.blocks[row];
            if (block.kind != Block::row || (row > at && block.firstRow)) break;
            if (needs.size() < block.cells.size()) needs.resize(block.cells.size(), 0);
            for (size_t i = 0; i < block.cells.size(); ++i) {
                const Runs cell = block.head ? Bold(block.cells[i]) : block.cells[i];
                needs[i] = std::max(needs[i], WidthOf(cell, Face::text, m_measure));
            }
        }
        const int gaps = kColumnGap * std::max(static_cast<int>(needs.size()) - 1, 0);
        m_columns = ColumnWidths(needs, m_width - gaps);
    }

    const Page& m_page;
    const int m_width;
    const CTextMeasure& m_measure;
    PageLayout m_layout;
    std::vector<int> m_columns;  // of the present table
    int m_y = 0;
};

}  // namespace

int PageLayout::AnchorY(const std::wstring& name) const {
    const auto at =
        std::find_if(anchors.begin(), anchors.end(), [&](const PlacedAnchor& a) { return a.name == name; });
    return at == anchors.end() ? -1 : at->y;
}

PageLayout LayOut(const Page& page, int width, const CTextMeasure& measure) {
    return CLayouter(page, width, measure).Run();
}

}  // namespace help
