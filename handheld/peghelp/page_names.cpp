#include "handheld/peghelp/page_names.h"

#include "handheld/companion/command_line.h"

namespace help {
namespace {

constexpr wchar_t kScheme[] = L"file:";
constexpr size_t kSchemeLength = 5;

bool HasScheme(const std::wstring& text) {
    if (text.size() < kSchemeLength) return false;
    for (size_t i = 0; i < kSchemeLength; ++i) {
        const wchar_t c =
            text[i] >= L'A' && text[i] <= L'Z' ? static_cast<wchar_t>(text[i] - L'A' + L'a') : text[i];
        if (c != kScheme[i]) return false;
    }
    return true;
}

}  // namespace

std::wstring PageArgument(const std::wstring& commandLine) {
    const std::wstring page = handheld::PathArgument(commandLine);
    return HasScheme(page) ? handheld::PathArgument(page.substr(kSchemeLength)) : page;
}

std::vector<std::wstring> PageNames(const std::wstring& page, handheld::Language language) {
    const std::wstring tag = handheld::LanguageTag(language);
    if (tag.empty()) return {page};
    const size_t folder = page.find_last_of(L"\\/"), dot = page.rfind(L'.');
    const bool extended = dot != std::wstring::npos && (folder == std::wstring::npos || dot > folder);
    const size_t stem = extended ? dot : page.size();
    return {page.substr(0, stem) + L'.' + tag + page.substr(stem), page};
}

}  // namespace help
