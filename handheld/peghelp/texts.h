// What the help viewer itself tells its user.
#pragma once
#include "handheld/companion/language.h"

namespace help {

enum class Text { help, missing };

const wchar_t* TextFor(Text text, handheld::Language language);

}  // namespace help
