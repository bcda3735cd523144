// Taking messages from the thread's queue: shared by the application's loop and every modal dialog's.
#pragma once
#include "platform/ce.h"

// Waits for one message, `message`, and handles it.  False for WM_QUIT.
// The addressed window, then its parents up to their top-level window, may take it by pre-translation; what
// none of them takes is dispatched.  Paint and timers get their turn as often as GetMessageW gives it to
// them.
bool HandleNextMessage(MSG& message);

// Makes a waiting loop look at its condition again, when nothing else may arrive.
void WakeMessageLoop();
