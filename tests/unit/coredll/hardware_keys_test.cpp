#include <algorithm>
#include <vector>

#include "store_fixture.h"

namespace {

struct Seen {
    UINT message;
    WPARAM wParam;
};
std::vector<Seen> seen;

LRESULT CALLBACK Record(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_HOTKEY || message == WM_KEYDOWN || message == WM_KEYUP || message == WM_HELP)
        seen.push_back({message, wParam});
    return DefWindowProcW(window, message, wParam, lParam);
}

class HardwareKeys : public testing::Test {
  protected:
    HardwareKeys() {
        WNDCLASSW description = {};
        description.lpfnWndProc = Record;
        description.lpszClassName = L"keys";
        RegisterClassW(&description);
        m_window = CreateWindowExW(0, L"keys", L"keys", WS_POPUP | WS_VISIBLE, 0, 0, 240, 320, nullptr,
                                   nullptr, nullptr, nullptr);
        SetForegroundWindow(m_window);
        SetFocus(m_window);
        for (UINT key = 193; key <= 196; ++key) EXPECT_TRUE(RegisterHotKey(m_window, key, MOD_WIN, key));
        seen.clear();
    }
    ~HardwareKeys() override {
        for (int key = 193; key <= 196; ++key) UnregisterHotKey(m_window, key);
        DestroyWindow(m_window);
    }

    // A key pressed and released, through the queue.
    void Type(WPARAM key, int repeats = 0) {
        Send(WM_KEYDOWN, key);
        while (repeats-- > 0) Send(WM_KEYDOWN, key, 1 << 30);
        Send(WM_KEYUP, key);
    }

    void Send(UINT message, WPARAM key, LPARAM state = 0) {
        PostMessageW(m_window, message, key, message == WM_KEYUP ? 0xC0000001 : 1 | state);
        MSG taken;
        while (PeekMessageW(&taken, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&taken);
            DispatchMessageW(&taken);
        }
    }

    void Expect(std::vector<Seen> expected) {
        ASSERT_EQ(seen.size(), expected.size());
        for (size_t i = 0; i < seen.size(); ++i) {
            EXPECT_EQ(seen[i].message, expected[i].message) << i;
            EXPECT_EQ(seen[i].wParam, expected[i].wParam) << i;
        }
    }

    HWND m_window;
};

}  // namespace

TEST_F(HardwareKeys, FunctionKeysAreApplicationKeys) {
    for (UINT i = 0; i < 4; ++i) {
        seen.clear();
        Type(VK_F1 + i);
        Expect({{WM_HOTKEY, 193 + i}, {WM_KEYUP, 193 + i}});
    }
}

TEST_F(HardwareKeys, HoldingAKeyIsOneHotKey) {
    Type(VK_F2, 5);
    EXPECT_EQ(std::count_if(seen.begin(), seen.end(), [](const Seen& s) { return s.message == WM_HOTKEY; }),
              1);
    EXPECT_EQ(seen.back().message, static_cast<UINT>(WM_KEYUP));
}

TEST_F(HardwareKeys, F5IsTheActionKey) {
    Type(VK_F5);
    Expect({{WM_KEYDOWN, 134}, {WM_KEYUP, 134}});
}

// Fingers seldom leave a key and Shift in the order in which they came.
TEST_F(HardwareKeys, ReleaseFollowsThePress) {
    BYTE keys[256] = {};
    keys[VK_SHIFT] = 0x80;
    SetKeyboardState(keys);
    Send(WM_KEYDOWN, VK_F2);
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
    Send(WM_KEYUP, VK_F2);
    Expect({{WM_KEYDOWN, VK_F2}, {WM_KEYUP, VK_F2}});
    seen.clear();
    Send(WM_KEYDOWN, VK_F5);
    keys[VK_SHIFT] = 0x80;
    SetKeyboardState(keys);
    Send(WM_KEYUP, VK_F5);
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
    Expect({{WM_KEYDOWN, 134}, {WM_KEYUP, 134}});
}

// As the key pad sends them, whatever is held on the keyboard.
TEST_F(HardwareKeys, TheHandheldsOwnKeysNeedNoPcKey) {
    BYTE keys[256] = {};
    keys[VK_SHIFT] = 0x80;
    SetKeyboardState(keys);
    Type(195, 2);
    Type(134);
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
    Expect({{WM_HOTKEY, 195}, {WM_KEYUP, 195}, {WM_KEYDOWN, 134}, {WM_KEYUP, 134}});
}

TEST_F(HardwareKeys, OtherKeysPassUnchanged) {
    Type(VK_F6);
    Type('A');
    Expect({{WM_KEYDOWN, VK_F6}, {WM_KEYUP, VK_F6}, {WM_KEYDOWN, 'A'}, {WM_KEYUP, 'A'}});
}

TEST_F(HardwareKeys, UnregisteredKeysAreTheDesktopsAgain) {
    for (int key = 193; key <= 196; ++key) EXPECT_TRUE(UnregisterHotKey(m_window, key));
    EXPECT_FALSE(UnregisterHotKey(m_window, 193));
    Type(VK_F2);
    Expect({{WM_KEYDOWN, VK_F2}, {WM_KEYUP, VK_F2}});
}

TEST_F(HardwareKeys, BadWindowIsRefused) {
    EXPECT_FALSE(RegisterHotKey(reinterpret_cast<HWND>(0x7FFFFFF0), 1, MOD_WIN, 193));
}
