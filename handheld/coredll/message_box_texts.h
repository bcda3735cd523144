// Captions of a message box's buttons in the handheld's nine languages.
#pragma once
#include <windows.h>

namespace handheld {

// Caption of a button (IDOK, IDCANCEL, IDABORT, IDRETRY, IDIGNORE, IDYES, IDNO) in a locale's language.
const wchar_t* ButtonCaption(int button, LCID locale);

}  // namespace handheld
