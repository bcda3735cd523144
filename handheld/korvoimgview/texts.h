// What the viewer tells its user.
#pragma once
#include "handheld/companion/language.h"

namespace viewer {

enum class Text { pictures, noPictures, missing, damagedPicture, tooLarge, damagedMovie, noCamera };

const wchar_t* TextFor(Text text, handheld::Language language);

}  // namespace viewer
