// The picture shown when the chosen source has nothing to show.
#pragma once
#include <string>

#include "handheld/sio/picture/picture.h"
#include "handheld/sio/picture/view.h"

namespace sio {

// Colour bars with a message: what is wrong, and with what (either may be cut to fit).
void drawTestCard(const std::string& headline, const std::string& detail, const View& view, Picture& into);

}  // namespace sio
