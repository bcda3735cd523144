// Decoding of picture files with the desktop's codecs.
#pragma once
#include <string>

#include "handheld/sio/picture/picture.h"

namespace sio {

// Reads a JPEG or PNG file. False, with `into` unspecified, when it is missing, damaged or unreasonably
// large.
bool readPictureFile(const std::wstring& path, Picture& into);

}  // namespace sio
