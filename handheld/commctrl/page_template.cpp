#include "handheld/commctrl/page_template.h"

#include <cstring>

namespace handheld {
namespace {

// Where the two forms keep what is needed here.
struct Form {
    size_t style;
    size_t menu;  // class and caption follow
};
constexpr Form kPlain = {0, 18};
constexpr Form kExtended = {12, 26};
constexpr size_t kMarkAt = 2;
constexpr WORD kExtendedMark = 0xFFFF;
constexpr WORD kOrdinalMark = 0xFFFF;  // in place of a name; its number follows

constexpr DWORD kFrame = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_VISIBLE | WS_DISABLED |
                         DS_MODALFRAME | DS_SYSMODAL;

class CReader {
  public:
    CReader(const std::vector<BYTE>& bytes, size_t at) : m_bytes(bytes), m_at(at) {}

    std::optional<WORD> Word() {
        WORD word;
        if (m_bytes.size() < m_at + sizeof word) return std::nullopt;
        std::memcpy(&word, &m_bytes[m_at], sizeof word);
        m_at += sizeof word;
        return word;
    }

    // A number counts as an empty name.
    std::optional<std::wstring> Name() {
        std::wstring name;
        for (auto word = Word(); word; word = Word()) {
            if (*word == 0) return name;
            if (*word == kOrdinalMark && name.empty()) return Word() ? std::optional(name) : std::nullopt;
            name.push_back(static_cast<wchar_t>(*word));
        }
        return std::nullopt;
    }

  private:
    const std::vector<BYTE>& m_bytes;
    size_t m_at;
};

}  // namespace

std::optional<PageTemplate> ReadPageTemplate(const void* data, size_t size) {
    const auto* first = static_cast<const BYTE*>(data);
    PageTemplate page = {{first, first + size}, {}};
    const auto mark = CReader(page.bytes, kMarkAt).Word();
    const Form& form = mark == kExtendedMark ? kExtended : kPlain;
    CReader reader(page.bytes, form.menu);
    const auto menu = reader.Name(), windowClass = reader.Name(), caption = reader.Name();
    if (!menu || !windowClass || !caption) return std::nullopt;
    page.caption = *caption;

    DWORD style;
    std::memcpy(&style, &page.bytes[form.style], sizeof style);
    style = (style & ~kFrame) | WS_CHILD | DS_CONTROL;
    std::memcpy(&page.bytes[form.style], &style, sizeof style);
    return page;
}

}  // namespace handheld
