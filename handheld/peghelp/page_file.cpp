#include "handheld/peghelp/page_file.h"

#include <windows.h>

#include "handheld/common/store_path.h"
#include "handheld/companion/own_folder.h"
#include "handheld/companion/read_file.h"
#include "handheld/peghelp/page_names.h"
#include "handheld/peghelp/utf8.h"

namespace help {
namespace {

constexpr size_t kMostBytes = 1u << 20;

std::optional<std::wstring> Load(const std::wstring& path) {
    std::vector<uint8_t> bytes;
    if (handheld::ReadWholeFile(path, kMostBytes, bytes) != handheld::ReadResult::ok) return std::nullopt;
    return FromUtf8({bytes.begin(), bytes.end()});
}

}  // namespace

std::optional<std::wstring> LoadPage(const std::wstring& page, handheld::Language language) {
    const bool placed = handheld::IsStorePath(page);
    const std::wstring stored = placed ? page : L"\\Windows\\" + page;
    for (const std::wstring& name : PageNames(stored, language))
        if (const auto path = handheld::StoreToDesktop(name))
            if (auto text = Load(*path)) return text;
    // Beside the program lie single files, so a name with a path in it is none of them.
    if (page.find_first_of(L"\\/:") != std::wstring::npos) return std::nullopt;
    for (const std::wstring& name : PageNames(page, language))
        if (auto text = Load(handheld::ProgramFolder() + L'\\' + name)) return text;
    return std::nullopt;
}

}  // namespace help
