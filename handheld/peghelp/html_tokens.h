// HTML taken apart into tags and text.  Portable.
#pragma once
#include <string>

namespace help {

struct Token {
    enum Kind { text, open, close, end } kind = end;
    std::wstring name;      // of a tag, in small letters
    std::wstring words;     // of a text, with its character references resolved
    std::wstring id, href;  // of an opening tag; an old page's "name" counts as id
};

// Comments and declarations are left out, and the contents of <style> and <script>.  Whatever is not well
// formed is text.
class CTokenReader {
  public:
    explicit CTokenReader(const std::wstring& html) : m_html(html) {}
    Token Next();

  private:
    bool SkipSilent();
    bool ReadTag(Token& token);
    void ReadAttributes(size_t at, size_t end, Token& token) const;
    void SkipContents(const std::wstring& name);

    const std::wstring& m_html;
    size_t m_at = 0;
};

}  // namespace help
