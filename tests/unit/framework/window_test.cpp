// Windows of the framework's own classes: the link between object and window, commands, re-entry.
#include "framework/window.h"

#include "framework/program_module.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

constexpr const wchar_t* kClassName = L"ZelTestWindow";
constexpr UINT kMsgNest = WM_USER + 1;   // wParam: how many times more
constexpr UINT kMsgCount = WM_USER + 2;  // result: lParam + 1

class CTestWindow : public CWindow {
  public:
    std::string log;
    bool refuseCreation = false;
    bool swallowCommands = false;

    bool CreateTest(HWND parent = nullptr) {
        return RegisterWindowClass(kClassName, 0, nullptr) &&
               Create(kClassName, L"test", parent ? WS_CHILD : WS_POPUP, 0, {0, 0, 100, 50}, parent, 0);
    }

    Reply OnMessage(const Message& message) override {
        using On = HandlersOf<CTestWindow>;
        static constexpr MessageRow rows[] = {
            On::message<WM_CREATE, &CTestWindow::OnCreate>, On::message<WM_DESTROY, &CTestWindow::OnDestroy>,
            On::message<kMsgNest, &CTestWindow::OnNest>,    On::message<kMsgCount, &CTestWindow::OnCount>,
            On::command<1, &CTestWindow::OnFirst>,
        };
        return Dispatch<rows, CWindow>(*this, message);
    }

    Then OnCommand(UINT id, UINT code, HWND control) override {
        log += "command " + std::to_string(id) + "/" + std::to_string(code) + (control ? "+;" : ";");
        return swallowCommands ? Then::done : Then::defaultHandling;
    }

  private:
    LRESULT OnCreate(const CREATESTRUCTW&) {
        log += Hwnd() ? "create;" : "create without window;";
        return refuseCreation ? -1 : 0;
    }
    void OnDestroy() { log += Hwnd() ? "destroy;" : "destroy without window;"; }
    void OnWindowGone() override { log += Hwnd() ? "gone too early;" : "gone;"; }
    // Sends messages to its own window, itself among them, and then leaves the rest to the default.
    Then OnNest(WPARAM more, LPARAM) {
        log += "<" + std::to_string(more);
        if (more > 0) SendMessageW(Hwnd(), kMsgNest, more - 1, 0);
        log += std::to_string(SendMessageW(Hwnd(), kMsgCount, 0, static_cast<LPARAM>(more))) + ">";
        return more % 2 ? Then::done : Then::defaultHandling;
    }
    LRESULT OnCount(WPARAM, LPARAM count) { return count + 1; }
    void OnFirst() { log += "first;"; }
};

TEST(Window, LivesFromCreateToDestroy) {
    CTestWindow window;
    EXPECT_EQ(nullptr, window.Hwnd());
    ASSERT_TRUE(window.CreateTest());
    const HWND hwnd = window.Hwnd();
    EXPECT_TRUE(IsWindow(hwnd));
    EXPECT_EQ(&window, CWindow::Of(hwnd));
    DestroyWindow(hwnd);
    EXPECT_EQ(nullptr, window.Hwnd());
    EXPECT_EQ(nullptr, CWindow::Of(hwnd));
    EXPECT_EQ("create;destroy;gone;", window.log);
}

TEST(Window, CanBeCreatedAgainButNotTwice) {
    CTestWindow window;
    ASSERT_TRUE(window.CreateTest());
    EXPECT_FALSE(window.CreateTest());
    DestroyWindow(window.Hwnd());
    EXPECT_TRUE(window.CreateTest());
}

TEST(Window, RefusedCreationLeavesNoLink) {
    CTestWindow window;
    window.refuseCreation = true;
    EXPECT_FALSE(window.CreateTest());
    EXPECT_EQ(nullptr, window.Hwnd());
    EXPECT_EQ(0u, window.log.find("create;"));
}

TEST(Window, UnknownClassIsNoWindow) {
    CTestWindow window;
    EXPECT_FALSE(window.Create(L"ZelNoSuchClass", L"", WS_POPUP, 0, {0, 0, 1, 1}, nullptr, 0));
    EXPECT_EQ(nullptr, window.Hwnd());
}

TEST(Window, ObjectTakesItsWindowAlong) {
    auto window = std::make_unique<CTestWindow>();
    ASSERT_TRUE(window->CreateTest());
    const HWND hwnd = window->Hwnd();
    window.reset();
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(nullptr, CWindow::Of(hwnd));
}

TEST(Window, ChildrenGoWithTheirParent) {
    CTestWindow parent;
    CTestWindow child;
    ASSERT_TRUE(parent.CreateTest());
    ASSERT_TRUE(child.CreateTest(parent.Hwnd()));
    EXPECT_EQ(parent.Hwnd(), GetParent(child.Hwnd()));
    DestroyWindow(parent.Hwnd());
    EXPECT_EQ(nullptr, child.Hwnd());
    EXPECT_EQ("create;destroy;gone;", child.log);
}

TEST(Window, ManyWindowsKeepTheirOwnObjects) {
    std::vector<std::unique_ptr<CTestWindow>> windows;
    for (int i = 0; i < 50; ++i) {
        windows.push_back(std::make_unique<CTestWindow>());
        ASSERT_TRUE(windows.back()->CreateTest());
    }
    for (int i = 0; i < 50; i += 2) windows[i].reset();
    for (int i = 1; i < 50; i += 2) EXPECT_EQ(windows[i].get(), CWindow::Of(windows[i]->Hwnd()));
}

TEST(Window, CommandsAreSeenBeforeTheTable) {
    CTestWindow window;
    ASSERT_TRUE(window.CreateTest());
    window.log.clear();
    SendMessageW(window.Hwnd(), WM_COMMAND, MAKEWPARAM(1, 0), 0);
    window.swallowCommands = true;
    SendMessageW(window.Hwnd(), WM_COMMAND, MAKEWPARAM(1, 0), 0);
    SendMessageW(window.Hwnd(), WM_COMMAND, MAKEWPARAM(1, EN_CHANGE),
                 reinterpret_cast<LPARAM>(window.Hwnd()));
    EXPECT_EQ("command 1/0;first;command 1/0;command 1/768+;", window.log);
}

TEST(Window, HandlerMaySendToItsOwnWindow) {
    CTestWindow window;
    ASSERT_TRUE(window.CreateTest());
    window.log.clear();
    SendMessageW(window.Hwnd(), kMsgNest, 3, 0);
    EXPECT_EQ("<3<2<1<01>2>3>4>", window.log);
}

TEST(Window, WhatTheTableLeavesGoesToTheSystem) {
    CTestWindow window;
    ASSERT_TRUE(window.CreateTest());
    SetWindowTextW(window.Hwnd(), L"by the system");
    wchar_t text[20] = L"";
    GetWindowTextW(window.Hwnd(), text, 20);
    EXPECT_STREQ(L"by the system", text);
}

TEST(Window, RegisteringAClassTwiceIsHarmless) {
    EXPECT_TRUE(RegisterWindowClass(kClassName, 0, nullptr));
    EXPECT_TRUE(RegisterWindowClass(kClassName, 0, nullptr));
}

}  // namespace
