// The pictures and sounds that the program carries, read from its file.
#pragma once
#include "desktop/picture_file.h"

// Empty when there is no such bitmap.
PixelPicture ProgramBitmap(unsigned id);

// Bytes of a sound, 0 when there is none of that name.
size_t ProgramSoundBytes(const wchar_t* name);
