// Closes the program after about two minutes in the background.
#pragma once
#include "platform/ce.h"

#include "app/background_count.h"

struct ForegroundWatcher {
    HWND screen = nullptr;
    BackgroundCount count;
};

// Starts the thread that looks every two seconds; it ends only after it has asked the screen to close.
void StartForegroundWatcher(ForegroundWatcher& watcher, HWND screen);
