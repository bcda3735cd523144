#include "app/foreground_watcher.h"

namespace {

DWORD WINAPI Watch(void* parameter) {
    auto& watcher = *static_cast<ForegroundWatcher*>(parameter);
    do {
        Sleep(kBackgroundPeriod);
    } while (!watcher.count.Check(GetForegroundWindow() == watcher.screen));
    PostMessageW(watcher.screen, WM_CLOSE, 0, 0);
    return 0;
}

}  // namespace

void StartForegroundWatcher(ForegroundWatcher& watcher, HWND screen) {
    watcher.screen = screen;
    watcher.count = {};
    const HANDLE thread = CreateThread(nullptr, 0, Watch, &watcher, 0, nullptr);
    if (thread != nullptr) CloseHandle(thread);
}
