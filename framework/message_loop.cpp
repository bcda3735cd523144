#include "framework/message_loop.h"

#include "framework/window.h"

namespace {

bool PreTranslate(MSG& message) {
    for (HWND hwnd = message.hwnd; hwnd; hwnd = GetParent(hwnd)) {
        CWindow* window = CWindow::Of(hwnd);
        if (window && window->PreTranslateMessage(message)) return true;
        // GetParent of a top-level window is its owner, which has no say in a dialog over it.
        if (!(GetWindowLongW(hwnd, GWL_STYLE) & WS_CHILD)) break;
    }
    return false;
}

}  // namespace

bool HandleNextMessage(MSG& message) {
    if (GetMessageW(&message, nullptr, 0, 0) == 0) return false;
    if (!PreTranslate(message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

void WakeMessageLoop() {
    PostMessageW(nullptr, WM_NULL, 0, 0);
}
