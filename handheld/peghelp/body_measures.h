// How the help viewer divides its body.
#pragma once
#include "handheld/companion/companion_screen.h"

namespace help {

inline constexpr int kMargin = 6;  // around the page
inline constexpr int kScrollBarWidth = 13;
inline constexpr int kTextWidth = handheld::kBodyWidth - kScrollBarWidth - 2 * kMargin;

}  // namespace help
