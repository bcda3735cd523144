// Taking messages from the thread's queue: shared by the application's loop and every modal dialog's.
#pragma once
#include "platform/ce.h"

// Waits for one message and handles it: the addressed window, then its parents up to their top-level window
// are asked to pre-translate it; when none of them takes it, it is dispatched.  `message` receives it.  False
// for WM_QUIT. A plain wait, so posted messages come before paint and timers but never keep a wait from
// ending.
bool HandleNextMessage(MSG& message);

// Makes a waiting loop look at its condition again, when nothing else may arrive.
void WakeMessageLoop();
