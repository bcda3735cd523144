// Where a dialog appears.
#pragma once
#include "platform/ce.h"

// Leaves size and place to the shell.  `flags`: SHIDIF_...
void FillScreen(HWND dialog, DWORD flags);

// Into the middle of its owner, or of the free screen without one; never off the free screen's upper left.
void CentreInOwner(HWND dialog);
