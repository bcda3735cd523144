#include "handheld/peghelp/line_pieces.h"

namespace help {
namespace {

constexpr wchar_t kFixedBlank = L'\u00A0';

// Characters that no line may begin or end with.
const std::wstring kClosing =
    L"\u3001\u3002\uFF0C\uFF0E\uFF1A\uFF1B\uFF01\uFF1F\uFF09\u300B\u300D\u300F\u3011\u201D\u2019\u2026\u00B7)"
    L"]},.:;!?";
const std::wstring kOpening = L"\uFF08\u300A\u300C\u300E\u3010\u201C\u2018([{";

// Scripts without blanks between words: Chinese and what goes with it.  Korean has blanks.
bool IsIdeographic(wchar_t c) {
    const auto code = static_cast<unsigned long>(c);
    return (code >= 0x2E80 && code < 0x3130) || (code >= 0x3190 && code < 0xA000) ||
           (code >= 0xF900 && code < 0xFB00) || (code >= 0xFE30 && code < 0xFE50) ||
           (code >= 0xFF00 && code < 0xFF61);
}

bool Contains(const std::wstring& set, wchar_t c) {
    return set.find(c) != std::wstring::npos;
}

bool MayBreakBetween(wchar_t before, wchar_t after) {
    if (Contains(kOpening, before) || Contains(kClosing, after)) return false;
    return IsIdeographic(before) || IsIdeographic(after);
}

// French sets a blank before these marks and inside its quotation marks; a line does not break there.
bool IsStuck(wchar_t before, wchar_t after) {
    static const std::wstring afterBlank = L":;!?\u00BB";
    return before == L'\u00AB' || (before && Contains(afterBlank, after));
}

class CPieceCutter {
  public:
    std::vector<Piece> Cut(const Runs& runs) {
        for (const Run& run : runs) {
            m_newPiece = true;
            for (wchar_t c : run.text) Add(run, c);
        }
        return std::move(m_pieces);
    }

  private:
    void Add(const Run& run, wchar_t c) {
        if (c == L'\n') {
            m_newLine = true;
        } else if (c == L' ' && (!run.key || m_newPiece)) {
            m_blank = true;
        } else {
            const bool stuck = m_blank && !m_newLine && IsStuck(m_before, c);
            const bool between = !run.key && !m_blank && m_before && MayBreakBetween(m_before, c);
            const bool breaks = m_newLine || (m_blank && !stuck) || between;
            if (m_newPiece || breaks) m_pieces.push_back({{}, &run, m_blank && !stuck, breaks, m_newLine});
            if (stuck) m_pieces.back().text += kFixedBlank;
            m_pieces.back().text += c;
            m_before = c;
            m_newPiece = m_blank = m_newLine = false;
        }
    }

    std::vector<Piece> m_pieces;
    bool m_newPiece = true, m_blank = false, m_newLine = false;
    wchar_t m_before = 0;  // the last character but blanks
};

}  // namespace

std::vector<Piece> CutIntoPieces(const Runs& runs) {
    return CPieceCutter().Cut(runs);
}

}  // namespace help
