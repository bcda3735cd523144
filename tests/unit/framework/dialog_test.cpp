// Modal dialogs: how they begin, run and end, alone and nested.
#include "framework/dialog.h"

#include "scripted_dialog.h"
#include "shell_double.h"
#include "test_resources.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

void RunPostedMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

// A plain window that owns the dialogs.
class Dialog : public ::testing::Test {
  protected:
    void SetUp() override {
        owner = CreateWindowExW(0, L"STATIC", L"owner", WS_POPUP | WS_VISIBLE, 20, 30, 400, 300, nullptr,
                                nullptr, nullptr, nullptr);
        ASSERT_NE(nullptr, owner);
    }
    void TearDown() override {
        DestroyWindow(owner);
        RunPostedMessages();
    }

    HWND owner = nullptr;
};

TEST_F(Dialog, EndsWithTheGivenResult) {
    CScriptedDialog dialog(IDD_SMALL);
    HWND hwnd = nullptr;
    dialog.steps = {[&] { hwnd = dialog.Hwnd(); }, [&] { dialog.EndDialog(1234); }};
    EXPECT_EQ(1234, dialog.DoModal(owner));
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(nullptr, dialog.Hwnd());
    EXPECT_EQ("init;destroy;", dialog.log);
}

TEST_F(Dialog, ButtonsEndIt) {
    CScriptedDialog dialog(IDD_FIELDS);
    dialog.steps = {[&] { PostMessageW(GetDlgItem(dialog.Hwnd(), IDOK), BM_CLICK, 0, 0); }};
    EXPECT_EQ(IDOK, dialog.DoModal(owner));
    dialog.steps = {[&] { PostMessageW(GetDlgItem(dialog.Hwnd(), IDCANCEL), BM_CLICK, 0, 0); }};
    EXPECT_EQ(IDCANCEL, dialog.DoModal(owner));
    EXPECT_EQ("init;destroy;init;cancel;destroy;", dialog.log);
}

TEST_F(Dialog, KeysPressTheButtons) {
    CScriptedDialog dialog(IDD_FIELDS);
    dialog.steps = {[&] { PostMessageW(GetDlgItem(dialog.Hwnd(), IDC_TEXT), WM_KEYDOWN, VK_RETURN, 1); }};
    EXPECT_EQ(IDOK, dialog.DoModal(owner));
    dialog.steps = {[&] { PostMessageW(GetDlgItem(dialog.Hwnd(), IDC_TEXT), WM_KEYDOWN, VK_ESCAPE, 1); }};
    EXPECT_EQ(IDCANCEL, dialog.DoModal(owner));
}

TEST_F(Dialog, CloseDestroysTheWindowAtOnce) {
    CScriptedDialog dialog(IDD_FIELDS);
    dialog.steps = {[&] {
        const HWND hwnd = dialog.Hwnd();
        SendMessageW(hwnd, WM_CLOSE, 0, 0);
        EXPECT_FALSE(IsWindow(hwnd));
        EXPECT_TRUE(IsWindowEnabled(owner));
    }};
    EXPECT_EQ(IDCANCEL, dialog.DoModal(owner));
    EXPECT_EQ("init;destroy;", dialog.log);  // without OnCancel
}

TEST_F(Dialog, OwnClosePathIsTheSame) {
    CScriptedDialog dialog(IDD_FIELDS);
    dialog.steps = {[&] { dialog.OnClose(); }};
    EXPECT_EQ(IDCANCEL, dialog.DoModal(owner));
    EXPECT_EQ("init;destroy;", dialog.log);
}

TEST_F(Dialog, DestructionFromOutsideEndsIt) {
    CScriptedDialog dialog(IDD_SMALL);
    dialog.steps = {[&] { DestroyWindow(dialog.Hwnd()); }};
    EXPECT_EQ(IDCANCEL, dialog.DoModal(owner));
    EXPECT_TRUE(IsWindowEnabled(owner));
}

// The message is handled inside the loop's wait, which by itself would go on waiting.
TEST_F(Dialog, CloseSentByAnotherThreadEndsIt) {
    CScriptedDialog dialog(IDD_SMALL);
    std::thread closer;
    dialog.steps = {
        [&] { closer = std::thread([hwnd = dialog.Hwnd()] { SendMessageW(hwnd, WM_CLOSE, 0, 0); }); }};
    EXPECT_EQ(IDCANCEL, dialog.DoModal(owner));
    closer.join();
}

TEST_F(Dialog, OwnerIsDisabledMeanwhile) {
    CScriptedDialog dialog(IDD_SMALL);
    dialog.steps = {[&] { EXPECT_FALSE(IsWindowEnabled(owner)); }, [&] { dialog.EndDialog(IDOK); }};
    EXPECT_TRUE(IsWindowEnabled(owner));
    dialog.DoModal(owner);
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(Dialog, OwnerThatWasDisabledStaysSo) {
    EnableWindow(owner, FALSE);
    CScriptedDialog dialog(IDD_SMALL);
    dialog.steps = {[&] { dialog.EndDialog(IDOK); }};
    dialog.DoModal(owner);
    EXPECT_FALSE(IsWindowEnabled(owner));
}

TEST_F(Dialog, ChildAsOwnerStandsForItsTopLevelWindow) {
    const HWND child =
        CreateWindowExW(0, L"BUTTON", L"", WS_CHILD, 0, 0, 10, 10, owner, nullptr, nullptr, nullptr);
    CScriptedDialog dialog(IDD_SMALL);
    dialog.steps = {[&] {
                        EXPECT_FALSE(IsWindowEnabled(owner));
                        EXPECT_TRUE(IsWindowEnabled(child));
                    },
                    [&] { dialog.EndDialog(IDOK); }};
    EXPECT_EQ(IDOK, dialog.DoModal(child));
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(Dialog, NestsAndComesBack) {
    CScriptedDialog outer(IDD_FIELDS);
    CScriptedDialog inner(IDD_SMALL);
    inner.steps = {[&] { EXPECT_FALSE(IsWindowEnabled(outer.Hwnd())); }, [&] { inner.EndDialog(5); }};
    outer.steps = {[&] { EXPECT_EQ(5, inner.DoModal(outer.Hwnd())); },
                   [&] {
                       EXPECT_TRUE(IsWindowEnabled(outer.Hwnd()));
                       EXPECT_FALSE(IsWindowEnabled(owner));
                   },
                   [&] { outer.EndDialog(6); }};
    EXPECT_EQ(6, outer.DoModal(owner));
}

TEST_F(Dialog, ClosingTheOuterOneEndsTheInnerOne) {
    CScriptedDialog outer(IDD_FIELDS);
    CScriptedDialog inner(IDD_SMALL);
    int innerResult = 0;
    inner.steps = {[&] { PostMessageW(outer.Hwnd(), WM_CLOSE, 0, 0); }};
    outer.steps = {[&] { innerResult = inner.DoModal(outer.Hwnd()); }};
    EXPECT_EQ(IDCANCEL, outer.DoModal(owner));
    EXPECT_EQ(IDCANCEL, innerResult);
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(Dialog, EndingTheOuterOneWaitsForTheInnerOne) {
    CScriptedDialog outer(IDD_FIELDS);
    CScriptedDialog inner(IDD_SMALL);
    inner.steps = {[&] { outer.EndDialog(7); }, [&] { EXPECT_TRUE(IsWindow(outer.Hwnd())); },
                   [&] { inner.EndDialog(8); }};
    outer.steps = {[&] { EXPECT_EQ(8, inner.DoModal(outer.Hwnd())); }};
    EXPECT_EQ(7, outer.DoModal(owner));
}

TEST_F(Dialog, QuitEndsEveryLoopAndReachesTheOutermost) {
    CScriptedDialog outer(IDD_FIELDS);
    CScriptedDialog inner(IDD_SMALL);
    inner.steps = {[&] { PostQuitMessage(44); }};
    outer.steps = {[&] { EXPECT_EQ(IDCANCEL, inner.DoModal(outer.Hwnd())); }};
    EXPECT_EQ(IDCANCEL, outer.DoModal(owner));
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(44u, message.wParam);
}

TEST_F(Dialog, MissingTemplateIsAFailureAndEnablesTheOwner) {
    CScriptedDialog dialog(9999);
    EXPECT_EQ(-1, dialog.DoModal(owner));
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ("", dialog.log);
}

TEST_F(Dialog, OneObjectIsShownOnceAtATime) {
    CScriptedDialog dialog(IDD_SMALL);
    dialog.steps = {[&] { EXPECT_EQ(-1, dialog.CDialog::DoModal(nullptr)); }, [&] { dialog.EndDialog(3); }};
    EXPECT_EQ(3, dialog.DoModal(owner));
}

class CEndsWhileBeginning : public CDialog {
  public:
    explicit CEndsWhileBeginning(bool destroy) : CDialog(IDD_FIELDS), m_destroy(destroy) {}

  protected:
    bool OnInitDialog() override {
        CDialog::OnInitDialog();
        if (m_destroy) {
            OnClose();
        } else {
            EndDialog(17);
        }
        return true;
    }

  private:
    const bool m_destroy;
};

TEST_F(Dialog, MayEndInItsInitialisation) {
    EXPECT_EQ(17, CEndsWhileBeginning(false).DoModal(owner));
    EXPECT_EQ(IDCANCEL, CEndsWhileBeginning(true).DoModal(owner));
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(Dialog, HiddenTemplateIsShown) {
    CScriptedDialog dialog(IDD_HIDDEN);
    dialog.steps = {[&] { EXPECT_TRUE(IsWindowVisible(dialog.Hwnd())); }, [&] { dialog.EndDialog(IDOK); }};
    EXPECT_EQ(IDOK, dialog.DoModal(owner));
}

TEST_F(Dialog, PreTranslationSeesMessagesForChildrenFirstTheInnermost) {
    // A window of the framework inside the dialog is asked before the dialog.
    class CChild : public CWindow {
      public:
        std::string* log = nullptr;
        bool swallow = false;
        bool PreTranslateMessage(MSG& message) override {
            if (message.message == WM_USER + 5) *log += "child;";
            return message.message == WM_USER + 5 && swallow;
        }
        Reply OnMessage(const Message& message) override {
            if (message.message == WM_USER + 5) *log += "handled;";
            return {};
        }
    } child;
    CScriptedDialog dialog(IDD_FIELDS);
    std::string log;
    child.log = &log;
    bool swallow = false;
    dialog.preTranslate = [&](MSG& message) {
        if (message.message != WM_USER + 5) return false;
        log += "dialog;";
        return swallow;
    };
    ASSERT_TRUE(RegisterWindowClass(L"ZelTestChild", 0, nullptr));
    const auto post = [&] { PostMessageW(child.Hwnd(), WM_USER + 5, 0, 0); };
    dialog.steps = {
        [&] {
            ASSERT_TRUE(child.Create(L"ZelTestChild", L"", WS_CHILD, 0, {0, 0, 9, 9}, dialog.Hwnd(), 7));
        },
        post,
        [&] { swallow = true; },
        post,
        [&] { child.swallow = true; },
        post,
        [&] { dialog.EndDialog(IDOK); },
    };
    EXPECT_EQ(IDOK, dialog.DoModal(owner));
    EXPECT_EQ("child;dialog;handled;child;dialog;child;", log);
}

TEST_F(Dialog, PreTranslationMaySwallowTheEnterKey) {
    CScriptedDialog dialog(IDD_FIELDS);
    std::vector<WPARAM> keysUp;
    dialog.preTranslate = [&](MSG& message) {
        if (message.message == WM_KEYUP) keysUp.push_back(message.wParam);
        return message.message == WM_KEYDOWN && message.wParam == VK_RETURN;
    };
    const auto post = [&](UINT message, WPARAM key) {
        PostMessageW(GetDlgItem(dialog.Hwnd(), IDC_TEXT), message, key, 1);
    };
    dialog.steps = {[&] { post(WM_KEYDOWN, VK_RETURN); }, [&] { post(WM_KEYUP, 0xC1); },
                    [&] { post(WM_KEYUP, 134); }, [&] { dialog.EndDialog(55); }};
    EXPECT_EQ(55, dialog.DoModal(owner));
    EXPECT_EQ((std::vector<WPARAM>{0xC1, 134}), keysUp);
}

TEST_F(Dialog, PreTranslationIsNotAskedForADialogOverIt) {
    CScriptedDialog outer(IDD_FIELDS);
    CScriptedDialog inner(IDD_SMALL);
    std::string log;
    const auto record = [&log](const char* name) {
        return [&log, name](MSG& message) {
            if (message.message == WM_USER + 5) log += name;
            return false;
        };
    };
    outer.preTranslate = record("outer;");
    inner.preTranslate = record("inner;");
    inner.steps = {[&] { PostMessageW(GetDlgItem(inner.Hwnd(), IDOK), WM_USER + 5, 0, 0); },
                   [&] { log += "then;"; },
                   [&] { PostMessageW(GetDlgItem(outer.Hwnd(), IDC_TEXT), WM_USER + 5, 0, 0); },
                   [&] { inner.EndDialog(IDOK); }};
    outer.steps = {[&] { inner.DoModal(outer.Hwnd()); }, [&] { outer.EndDialog(IDOK); }};
    outer.DoModal(owner);
    EXPECT_EQ("inner;then;outer;", log);  // its own it sees, although the inner loop took it from the queue
}

TEST_F(Dialog, PreTranslationMayCloseTheDialog) {
    CScriptedDialog dialog(IDD_FIELDS);
    dialog.preTranslate = [&](MSG& message) {
        if (message.message == WM_KEYUP) dialog.OnClose();
        return false;
    };
    dialog.steps = {[&] { PostMessageW(GetDlgItem(dialog.Hwnd(), IDC_TEXT), WM_KEYUP, 134, 1); }};
    EXPECT_EQ(IDCANCEL, dialog.DoModal(owner));
}

TEST_F(Dialog, SteadyPostingLeavesTimersAndPaintTheirTurn) {
    static constexpr int kMostFrames = 1000;  // by then the timer has had no turn
    class CBusyDialog : public CDialog {
      public:
        CBusyDialog() : CDialog(IDD_FIELDS) {}
        std::atomic<HWND> target{nullptr};
        std::atomic<bool> stop{false};
        std::atomic<bool> unread{false};
        int frames = 0;
        int ticks = 0;
        int paints = 0;

        Reply OnMessage(const Message& message) override {
            using On = HandlersOf<CBusyDialog>;
            static constexpr MessageRow rows[] = {
                On::message<WM_USER + 10, &CBusyDialog::OnFrame>,
                On::message<WM_TIMER, &CBusyDialog::OnTimer>,
                On::message<WM_PAINT, &CBusyDialog::OnPaint>,
            };
            return Dispatch<rows, CDialog>(*this, message);
        }

      protected:
        bool OnInitDialog() override {
            SetTimer(Hwnd(), 1, 20, nullptr);
            target = Hwnd();
            return CDialog::OnInitDialog();
        }

      private:
        void OnFrame() {
            unread = false;
            if (++frames == kMostFrames) EndDialog(IDABORT);
            InvalidateRect(Hwnd(), nullptr, FALSE);
        }
        void OnTimer() {
            if (++ticks == 10) EndDialog(IDOK);
        }
        Then OnPaint() {
            ++paints;
            return Then::defaultHandling;
        }
    } dialog;
    // Like the camera card, but faster: never more than one unread message, and time to paint between two.
    std::thread card([&] {
        while (!dialog.stop) {
            const HWND hwnd = dialog.target;
            if (hwnd && !dialog.unread.exchange(true)) PostMessageW(hwnd, WM_USER + 10, 0, 0);
            Sleep(10);
        }
    });
    EXPECT_EQ(IDOK, dialog.DoModal(owner));
    dialog.stop = true;
    card.join();
    EXPECT_GT(dialog.frames, 10);
    EXPECT_GT(dialog.paints, 3);
}

TEST_F(Dialog, ScreensAreSizedByTheShell) {
    using Placement = CDialog::Placement;
    for (const Placement placement : {Placement::screen, Placement::screenWithButton}) {
        TestShell().initDialog.clear();
        CScriptedDialog dialog(IDD_FIELDS, placement);
        HWND hwnd = nullptr;
        RECT bounds = {};
        dialog.steps = {[&] {
            hwnd = dialog.Hwnd();
            GetWindowRect(hwnd, &bounds);
            dialog.EndDialog(IDOK);
        }};
        dialog.DoModal(owner);
        ASSERT_EQ(1u, TestShell().initDialog.size());
        const SHINITDLGINFO& asked = TestShell().initDialog[0];
        EXPECT_EQ(SHIDIM_FLAGS, asked.dwMask);
        EXPECT_EQ(hwnd, asked.hDlg);
        EXPECT_TRUE(asked.dwFlags & SHIDIF_SIZEDLGFULLSCREEN);
        EXPECT_EQ(placement == Placement::screenWithButton, (asked.dwFlags & SHIDIF_DONEBUTTON) != 0);
        EXPECT_EQ(240, bounds.right - bounds.left);
    }
}

TEST_F(Dialog, SmallDialogsAreCentredInTheirOwner) {
    TestShell().initDialog.clear();
    CScriptedDialog dialog(IDD_SMALL);
    RECT bounds = {};
    dialog.steps = {[&] { GetWindowRect(dialog.Hwnd(), &bounds); }, [&] { dialog.EndDialog(IDOK); }};
    dialog.DoModal(owner);
    EXPECT_NEAR(20 + 200, (bounds.left + bounds.right) / 2, 1);
    EXPECT_NEAR(30 + 150, (bounds.top + bounds.bottom) / 2, 1);
    EXPECT_TRUE(TestShell().initDialog.empty());
}

TEST_F(Dialog, CentringStaysOnTheScreen) {
    SetWindowPos(owner, nullptr, -390, -290, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    CScriptedDialog dialog(IDD_SMALL);
    RECT bounds = {};
    dialog.steps = {[&] { GetWindowRect(dialog.Hwnd(), &bounds); }, [&] { dialog.EndDialog(IDOK); }};
    dialog.DoModal(owner);
    EXPECT_GE(bounds.left, 0);
    EXPECT_GE(bounds.top, 0);
}

// The result of a dialog's handler reaches the sender, and brushes reach the control.
TEST_F(Dialog, HandlersResultsReachTheSender) {
    class CAnswers : public CScriptedDialog {
      public:
        CAnswers() : CScriptedDialog(IDD_FIELDS) {}
        Reply OnMessage(const Message& message) override {
            using On = HandlersOf<CAnswers>;
            static constexpr MessageRow rows[] = {
                On::message<WM_USER + 1, &CAnswers::OnAsk>,
                On::colors<&CAnswers::OnColors>,
            };
            return Dispatch<rows, CScriptedDialog>(*this, message);
        }

      private:
        LRESULT OnAsk() { return 0x7FFF'0001; }
        HBRUSH OnColors(HDC, HWND control) {
            return GetDlgCtrlID(control) == IDC_LABEL ? static_cast<HBRUSH>(GetStockObject(NULL_BRUSH))
                                                      : nullptr;
        }
    } dialog;
    dialog.steps = {[&] {
                        EXPECT_EQ(0x7FFF'0001, SendMessageW(dialog.Hwnd(), WM_USER + 1, 0, 0));
                        const auto brushOf = [&](int id) {
                            const HWND control = GetDlgItem(dialog.Hwnd(), id);
                            const HDC dc = GetDC(control);
                            const LRESULT brush =
                                SendMessageW(dialog.Hwnd(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                                             reinterpret_cast<LPARAM>(control));
                            ReleaseDC(control, dc);
                            return reinterpret_cast<HGDIOBJ>(brush);
                        };
                        EXPECT_EQ(GetStockObject(NULL_BRUSH), brushOf(IDC_LABEL));
                        EXPECT_NE(GetStockObject(NULL_BRUSH), brushOf(IDC_CHECK));
                    },
                    [&] { dialog.EndDialog(IDOK); }};
    dialog.DoModal(owner);
}

}  // namespace
