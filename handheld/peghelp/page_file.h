// Help pages as files.
#pragma once
#include <optional>
#include <string>

#include "handheld/companion/language.h"

namespace help {

// The text of a page, by the name that a program gave: in the object store's "\Windows", or else beside this
// program; in either place the language's translation comes first.  A path that begins with a backslash names
// one place in the store.  Nothing when there is no such page, or when it is larger than any help page.
std::optional<std::wstring> LoadPage(const std::wstring& page, handheld::Language language);

}  // namespace help
