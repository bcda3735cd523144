// Which window is in front.  A handheld shows one program at a time, and the desktop's neighbours are not on
// it: to a program with a screen, its own first screen window is in front, also while a dialog of its own
// covers that. HANDHELD_FOREGROUND=desktop asks the desktop instead; HANDHELD_FOREGROUND=other names a window
// of another program always, which puts the program into the background.
#include "handheld/common/settings.h"
#include "handheld/coredll/screen.h"

using namespace handheld;

extern "C" HWND WINAPI HandheldGetForegroundWindow() {
    const std::wstring rule = TextSetting(L"HANDHELD_FOREGROUND");
    if (rule == L"other") return GetDesktopWindow();
    HWND screen = rule == L"desktop" ? nullptr : FindScreen();
    return screen ? GetAncestor(screen, GA_ROOTOWNER) : GetForegroundWindow();
}
