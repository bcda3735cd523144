// The handheld's hardware keys, on a PC keyboard:
//
//   PC key   handheld key                     virtual key
//   F1       application key 1                193
//   F2       application key 2                194
//   F3       application key 3                195
//   F4       application key 4                196
//   F5       action key (the side button)     134
//
// They take effect on a thread that has registered hot keys, and only bare: with Shift, Ctrl or Alt they keep
// their desktop meaning (Shift+F1 asks for help).  The key pad sends the handheld's keys themselves.  As on
// the handheld, pressing a key that a window has registered sends it WM_HOTKEY, and releasing it WM_KEYUP.
#include <algorithm>
#include <iterator>
#include <mutex>
#include <vector>

#include <windows.h>

namespace {

struct HardwareKey {
    WPARAM pcKey;
    UINT key;
};
constexpr HardwareKey kKeys[] = {{VK_F1, 193}, {VK_F2, 194}, {VK_F3, 195}, {VK_F4, 196}, {VK_F5, 134}};
constexpr UINT kHelpKeyMessage = 0x004D;  // follows F1's WM_KEYDOWN and ends as WM_HELP

struct HotKey {
    HWND window;
    int id;
    UINT modifiers;
    UINT key;
    DWORD thread;
};

struct Registered {
    std::mutex lock;
    std::vector<HotKey> keys;
};
Registered& HotKeys() {
    static auto* registered = new Registered;
    return *registered;
}

thread_local HHOOK messageHook;
thread_local unsigned heldKeys;  // of the table above, a bit each: pressed bare and not yet released

bool WithModifier() {
    return GetKeyState(VK_SHIFT) < 0 || GetKeyState(VK_CONTROL) < 0 || GetKeyState(VK_MENU) < 0;
}

// The window and hot key that a hardware key was registered for on this thread.
bool FindHotKey(UINT key, HotKey& found) {
    Registered& registered = HotKeys();
    std::lock_guard guard(registered.lock);
    for (const HotKey& hotKey : registered.keys) {
        if (hotKey.key != key || hotKey.thread != GetCurrentThreadId()) continue;
        found = hotKey;
        return true;
    }
    return false;
}

// A pressed key that a window has registered reaches that window instead, and once only.
void SendHotKey(UINT key, bool repeated, MSG& message) {
    HotKey hotKey;
    if (!FindHotKey(key, hotKey)) return;
    message.hwnd = hotKey.window;
    message.message = repeated ? WM_NULL : WM_HOTKEY;
    message.wParam = static_cast<WPARAM>(hotKey.id);
    message.lParam = MAKELPARAM(hotKey.modifiers, hotKey.key);
}

void Translate(MSG& message) {
    if (message.message == kHelpKeyMessage) {
        if (!WithModifier()) message.message = WM_NULL;
        return;
    }
    if (message.message != WM_KEYDOWN && message.message != WM_KEYUP) return;
    const bool pressed = message.message == WM_KEYDOWN, repeated = message.lParam & (1 << 30);
    const auto key = std::find_if(std::begin(kKeys), std::end(kKeys), [&](const HardwareKey& k) {
        return k.pcKey == message.wParam || k.key == message.wParam;
    });
    if (key == std::end(kKeys)) return;
    if (key->pcKey == message.wParam) {
        // A key is released as what it was pressed as, whatever became of Shift in between.
        const unsigned held = 1u << (key - kKeys);
        if (pressed && !repeated && !WithModifier()) heldKeys |= held;
        if (!(heldKeys & held)) return;
        if (!pressed) heldKeys &= ~held;
        message.wParam = key->key;
    }
    if (pressed) SendHotKey(key->key, repeated, message);
}

LRESULT CALLBACK OnMessageTaken(int code, WPARAM removed, LPARAM message) {
    if (code == HC_ACTION && (removed & PM_REMOVE)) Translate(*reinterpret_cast<MSG*>(message));
    return CallNextHookEx(nullptr, code, removed, message);
}

bool AnyOnThisThread(const std::vector<HotKey>& keys) {
    return std::any_of(keys.begin(), keys.end(),
                       [](const HotKey& hotKey) { return hotKey.thread == GetCurrentThreadId(); });
}

}  // namespace

extern "C" {

// The desktop is asked as well, for keyboards that have the handheld's keys; it may refuse, since another
// program can hold them, and that makes no difference here.
BOOL WINAPI HandheldRegisterHotKey(HWND window, int id, UINT modifiers, UINT key) {
    if (!IsWindow(window)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    RegisterHotKey(window, id, modifiers, key);
    Registered& registered = HotKeys();
    std::lock_guard guard(registered.lock);
    registered.keys.push_back({window, id, modifiers, key, GetCurrentThreadId()});
    if (!messageHook)
        messageHook = SetWindowsHookExW(WH_GETMESSAGE, OnMessageTaken, nullptr, GetCurrentThreadId());
    return TRUE;
}

BOOL WINAPI HandheldUnregisterHotKey(HWND window, int id) {
    UnregisterHotKey(window, id);
    Registered& registered = HotKeys();
    std::lock_guard guard(registered.lock);
    auto& keys = registered.keys;
    const auto kept = std::remove_if(keys.begin(), keys.end(), [&](const HotKey& hotKey) {
        return hotKey.window == window && hotKey.id == id;
    });
    const bool found = kept != keys.end();
    keys.erase(kept, keys.end());
    if (messageHook && !AnyOnThisThread(keys)) {
        UnhookWindowsHookEx(messageHook);
        messageHook = nullptr;
    }
    if (!found) SetLastError(ERROR_HOTKEY_NOT_REGISTERED);
    return found;
}

// Takes a hot key away from the shell.  No shell holds any here.
BOOL WINAPI HandheldUnregisterFunc1(UINT, UINT) {
    return TRUE;
}

}  // extern "C"
