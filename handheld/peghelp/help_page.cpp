#include "handheld/peghelp/help_page.h"

#include <algorithm>

#include "handheld/peghelp/html_tokens.h"

namespace help {
namespace {

constexpr size_t kDeepestList = 6;

bool IsBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r' || c == L'\f';
}

class CPageBuilder {
  public:
    Page Build(const std::wstring& html) {
        CTokenReader reader(html);
        for (Token token = reader.Next(); token.kind != Token::end; token = reader.Next()) {
            if (token.kind == Token::text)
                AddText(token.words);
            else
                OnTag(token);
        }
        FinishBlock();
        return std::move(m_page);
    }

  private:
    using Handler = void (CPageBuilder::*)(const Token&, bool opens);
    struct Tag {
        const wchar_t* name;
        Handler handler;
    };
    static const Tag kTags[];

    void OnTag(const Token& token) {
        const bool opens = token.kind == Token::open;
        const auto known = [&](const Tag& tag) { return token.name == tag.name; };
        const Tag* end = kTags + kTagCount;
        const Tag* tag = std::find_if(kTags, end, known);
        if (tag != end) (this->*tag->handler)(token, opens);
        // After the handler: the block that a heading opens is the one its id names.
        if (opens && !token.id.empty()) m_block.anchors.push_back(token.id);
    }
    static const size_t kTagCount;

    void OnTitle(const Token&, bool opens) { m_inTitle = opens; }
    void OnBold(const Token&, bool opens) { m_style.bold = opens; }
    // Two keys side by side are two frames.
    void OnKey(const Token&, bool opens) {
        m_style.key = opens;
        m_newRun = opens;
    }
    void OnBreak(const Token&, bool) {
        if (!Current().empty()) AddRun(L"\n");
    }
    void OnLink(const Token& token, bool opens) {
        const bool inside = opens && token.href.size() > 1 && token.href[0] == L'#';
        m_style.link = inside ? token.href.substr(1) : std::wstring();
    }
    void OnParagraph(const Token&, bool) { FinishBlock(); }
    void OnHeading(const Token& token, bool opens) {
        FinishBlock();
        if (!opens) return;
        m_block.kind = Block::heading;
        m_block.level = token.name[1] - L'0';
    }
    void OnRule(const Token&, bool) {
        FinishBlock();
        m_block.kind = Block::rule;
        FinishBlock();
    }
    void OnList(const Token& token, bool opens) {
        FinishBlock();
        if (opens && m_lists.size() < kDeepestList)
            m_lists.push_back(token.name == L"ol" ? 1 : 0);
        else if (!opens && !m_lists.empty())
            m_lists.pop_back();
        m_block.level = static_cast<int>(m_lists.size());
    }
    void OnItem(const Token&, bool opens) {
        FinishBlock();
        if (!opens || m_lists.empty()) return;
        int& number = m_lists.back();
        m_block.kind = Block::item;
        m_block.level = static_cast<int>(m_lists.size());
        m_block.marker = number ? std::to_wstring(number++) + L"." : std::wstring(1, wchar_t{0x2022});
    }
    void OnTable(const Token&, bool opens) {
        FinishBlock();
        m_inTable = opens;
        m_firstRow = opens;
    }
    void OnRow(const Token&, bool opens) {
        FinishBlock();
        if (!opens || !m_inTable) return;
        m_block.kind = Block::row;
        m_block.firstRow = m_firstRow;
        m_firstRow = false;
    }
    void OnCell(const Token& token, bool opens) {
        if (m_block.kind != Block::row) return;
        m_blank = false;
        if (!opens) return;
        m_block.cells.emplace_back();
        if (token.name == L"th") m_block.head = true;
    }

    // Where text goes: the last cell of a row, or the block itself.
    Runs& Current() {
        return m_block.kind == Block::row && !m_block.cells.empty() ? m_block.cells.back() : m_block.runs;
    }

    void AddText(const std::wstring& words) {
        if (m_inTitle) {
            m_page.title += words;
            return;
        }
        std::wstring text;
        for (wchar_t c : words) {
            if (IsBlank(c)) {
                m_blank = true;
                continue;
            }
            // A blank at the beginning of a block or line is not seen.
            const bool first = text.empty() && (Current().empty() || Current().back().text.back() == L'\n');
            if (m_blank && !first) text += L' ';
            m_blank = false;
            text += c;
        }
        if (!text.empty()) AddRun(text);
    }

    // Joined to the run before when it is of the same kind.
    void AddRun(const std::wstring& text) {
        Runs& runs = Current();
        const bool same = !m_newRun && !runs.empty() && runs.back().bold == m_style.bold &&
                          runs.back().key == m_style.key && runs.back().link == m_style.link;
        if (!same) runs.push_back(m_style);
        m_newRun = false;
        runs.back().text += text;
    }

    void FinishBlock() {
        const bool empty = m_block.runs.empty() && m_block.cells.empty() && m_block.kind != Block::rule;
        Block next;
        next.level = static_cast<int>(m_lists.size());
        if (empty) {
            // Its anchors lead to the next block; the text of an item may come in a paragraph of its own.
            next.anchors = std::move(m_block.anchors);
            if (m_block.kind == Block::item) {
                next.kind = Block::item;
                next.level = m_block.level;
                next.marker = m_block.marker;
            }
        } else {
            if (m_block.kind == Block::row && m_block.cells.empty()) m_block.kind = Block::paragraph;
            if (m_block.kind == Block::paragraph && m_block.level > 0) m_block.kind = Block::item;
            m_page.blocks.push_back(std::move(m_block));
        }
        m_block = std::move(next);
        m_blank = false;
    }

    Page m_page;
    Block m_block;
    Run m_style;               // of the text to come; its own text is empty
    std::vector<int> m_lists;  // open lists: the next number, 0 for dots
    bool m_newRun = false;     // the next text is not joined to the one before
    bool m_inTitle = false, m_inTable = false, m_firstRow = false;
    bool m_blank = false;  // a blank has been read that is not yet part of a text
};

const CPageBuilder::Tag CPageBuilder::kTags[] = {
    {L"title", &CPageBuilder::OnTitle},    {L"b", &CPageBuilder::OnBold},
    {L"strong", &CPageBuilder::OnBold},    {L"kbd", &CPageBuilder::OnKey},
    {L"br", &CPageBuilder::OnBreak},       {L"a", &CPageBuilder::OnLink},
    {L"p", &CPageBuilder::OnParagraph},    {L"div", &CPageBuilder::OnParagraph},
    {L"body", &CPageBuilder::OnParagraph}, {L"h1", &CPageBuilder::OnHeading},
    {L"h2", &CPageBuilder::OnHeading},     {L"h3", &CPageBuilder::OnHeading},
    {L"hr", &CPageBuilder::OnRule},        {L"ul", &CPageBuilder::OnList},
    {L"ol", &CPageBuilder::OnList},        {L"li", &CPageBuilder::OnItem},
    {L"table", &CPageBuilder::OnTable},    {L"tr", &CPageBuilder::OnRow},
    {L"td", &CPageBuilder::OnCell},        {L"th", &CPageBuilder::OnCell},
};
const size_t CPageBuilder::kTagCount = sizeof kTags / sizeof kTags[0];

}  // namespace

Page ReadPage(const std::wstring& html) {
    return CPageBuilder().Build(html);
}

}  // namespace help
