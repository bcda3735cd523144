// Brings a picture of any size into a view.
#pragma once
#include "handheld/sio/picture/picture.h"
#include "handheld/sio/picture/view.h"

namespace sio {

// Cuts the largest centred part of the view's shape (a half or a quarter of it at zoom 1 or 2) out of a
// picture that is not empty, and scales it to the view: averaging where it shrinks, interpolating where it
// grows.
void fitToView(const Picture& source, const View& view, Picture& into);

}  // namespace sio
