// Which object stands behind a window.  The link cannot live in the window itself: CE keeps 32 bits there,
// and a pointer of the desktop build does not fit.  For the user-interface thread only.
#pragma once
#include "platform/ce.h"

class CWindow;

void LinkWindow(HWND hwnd, CWindow& window);
void UnlinkWindow(HWND hwnd);

// Null when the window is not one of the framework's.
CWindow* WindowOf(HWND hwnd);
