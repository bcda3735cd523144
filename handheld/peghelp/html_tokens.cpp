#include "handheld/peghelp/html_tokens.h"

#include <algorithm>
#include <cwchar>

#include "handheld/peghelp/utf8.h"

namespace help {
namespace {

struct Reference {
    const wchar_t* name;
    wchar_t character;
};
constexpr Reference kReferences[] = {
    {L"amp", L'&'},           {L"lt", L'<'},          {L"gt", L'>'}, {L"quot", L'"'},
    {L"nbsp", wchar_t{0xA0}}, {L"shy", wchar_t{0xAD}}};
constexpr size_t kLongestReference = 10;  // between & and ;

bool IsLetter(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

bool IsNamePart(wchar_t c) {
    return IsLetter(c) || (c >= L'0' && c <= L'9') || c == L'-' || c == L':';
}

bool IsBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r' || c == L'\f';
}

std::wstring SmallLetters(std::wstring text) {
    for (wchar_t& c : text)
        if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
    return text;
}

// "#65", "#x41" or a name; false for anything else.
bool AppendReference(const std::wstring& name, std::wstring& text) {
    if (name.size() > 1 && name[0] == L'#') {
        const bool hex = name[1] == L'x' || name[1] == L'X';
        const std::wstring digits = name.substr(hex ? 2 : 1);
        if (digits.empty() ||
            digits.find_first_not_of(hex ? L"0123456789abcdefABCDEF" : L"0123456789") != std::wstring::npos)
            return false;
        AppendCharacter(text, std::wcstoul(digits.c_str(), nullptr, hex ? 16 : 10));
        return true;
    }
    for (const Reference& known : kReferences) {
        if (name != known.name) continue;
        text += known.character;
        return true;
    }
    return false;
}

std::wstring Resolved(const std::wstring& source) {
    std::wstring text;
    for (size_t at = 0; at < source.size(); ++at) {
        const size_t end = source[at] == L'&' ? source.find(L';', at) : std::wstring::npos;
        if (end != std::wstring::npos && end - at <= kLongestReference + 1 &&
            AppendReference(source.substr(at + 1, end - at - 1), text))
            at = end;
        else
            text += source[at];
    }
    return text;
}

}  // namespace

Token CTokenReader::Next() {
    Token token;
    while (SkipSilent()) {
    }
    if (m_at >= m_html.size()) return token;
    if (m_html[m_at] == L'<' && ReadTag(token)) {
        if (token.kind == Token::open) SkipContents(token.name);
        return token;
    }
    // A lone < is text; so at least one character is taken.
    const size_t end = std::min(m_html.find(L'<', m_at + 1), m_html.size());
    token.kind = Token::text;
    token.words = Resolved(m_html.substr(m_at, end - m_at));
    m_at = end;
    return token;
}

bool CTokenReader::SkipSilent() {
    const bool comment = m_html.compare(m_at, 4, L"<!--") == 0;
    if (!comment && m_html.compare(m_at, 2, L"<!") != 0 && m_html.compare(m_at, 2, L"<?") != 0) return false;
    const size_t end = m_html.find(comment ? L"-->" : L">", m_at);
    m_at = end == std::wstring::npos ? m_html.size() : end + (comment ? 3 : 1);
    return true;
}

bool CTokenReader::ReadTag(Token& token) {
    size_t at = m_at + 1;
    const bool close = at < m_html.size() && m_html[at] == L'/';
    if (close) ++at;
    const size_t name = at;
    if (at >= m_html.size() || !IsLetter(m_html[at])) return false;
    while (at < m_html.size() && IsNamePart(m_html[at])) ++at;
    // A > inside a quoted value does not end the tag.
    wchar_t quote = 0;
    size_t end = at;
    for (; end < m_html.size() && (quote || m_html[end] != L'>'); ++end) {
        if (m_html[end] == quote)
            quote = 0;
        else if (!quote && (m_html[end] == L'"' || m_html[end] == L'\''))
            quote = m_html[end];
    }
    if (end == m_html.size()) return false;
    token.kind = close ? Token::close : Token::open;
    token.name = SmallLetters(m_html.substr(name, at - name));
    ReadAttributes(at, end, token);
    m_at = end + 1;
    return true;
}

void CTokenReader::ReadAttributes(size_t at, size_t end, Token& token) const {
    while (at < end) {
        const size_t name = at;
        while (at < end && IsNamePart(m_html[at])) ++at;
        if (at == name) {
            ++at;
            continue;
        }
        const std::wstring attribute = SmallLetters(m_html.substr(name, at - name));
        while (at < end && IsBlank(m_html[at])) ++at;
        if (at == end || m_html[at] != L'=') continue;
        ++at;
        while (at < end && IsBlank(m_html[at])) ++at;
        const wchar_t quote = at < end && (m_html[at] == L'"' || m_html[at] == L'\'') ? m_html[at] : 0;
        const size_t first = quote ? ++at : at;
        while (at < end && (quote ? m_html[at] != quote : !IsBlank(m_html[at]))) ++at;
        const std::wstring value = Resolved(m_html.substr(first, at - first));
        if (quote) ++at;
        if (attribute == L"id" || attribute == L"name") token.id = value;
        if (attribute == L"href") token.href = value;
    }
}

void CTokenReader::SkipContents(const std::wstring& name) {
    if (name != L"style" && name != L"script") return;
    m_at = std::min(m_html.find(L"</" + name, m_at), m_html.size());
}

}  // namespace help
