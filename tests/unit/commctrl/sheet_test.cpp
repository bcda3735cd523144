// Property sheets as the handheld shows them, worked from outside through their windows.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "desktop/process_counts.h"
#include "platform/ce.h"
#include "test_resources.h"

namespace {

constexpr wchar_t kTestPage[] = L"TestPage";

// A page of the program's own that notes what it hears and answers as it is told.
struct TestPage {
    TestPage(std::string pageName, std::string& pageLog) : name(std::move(pageName)), log(pageLog) {}

    const std::string name;
    std::string& log;
    LRESULT killAnswer = 0, applyAnswer = PSNRET_NOERROR, cancelAnswer = 0, siblingAnswer = 0;
    std::function<void()> onKill;
    HWND window = nullptr;

    void Note(const char* what, LPARAM detail) const { log += name + " " + what + (detail ? "!" : "") + ";"; }

    LRESULT OnNotice(const PSHNOTIFY& notice) const {
        switch (notice.hdr.code) {
            case PSN_SETACTIVE:
                Note("active", notice.lParam);
                return 0;
            case PSN_KILLACTIVE:
                Note("kill", notice.lParam);
                if (onKill) onKill();
                return killAnswer;
            case PSN_APPLY:
                Note("apply", notice.lParam);
                return applyAnswer;
            case PSN_QUERYCANCEL:
                Note("query", notice.lParam);
                return cancelAnswer;
            case PSN_RESET:
                Note("reset", notice.lParam);
                return 0;
            default:
                return 0;
        }
    }

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM, LPARAM lParam) {
        if (message == WM_INITDIALOG) {
            auto* page = reinterpret_cast<TestPage*>(reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam);
            SetPropW(window, kTestPage, page);
            page->window = window;
            return TRUE;
        }
        const auto* page = static_cast<TestPage*>(GetPropW(window, kTestPage));
        if (!page) return FALSE;
        if (message == WM_DESTROY) RemovePropW(window, kTestPage);
        LRESULT answer = 0;
        if (message == WM_NOTIFY) answer = page->OnNotice(*reinterpret_cast<const PSHNOTIFY*>(lParam));
        if (message == PSM_QUERYSIBLINGS) answer = page->siblingAnswer;
        SetWindowLongPtrW(window, DWLP_MSGRESULT, answer);
        return message == WM_NOTIFY || message == PSM_QUERYSIBLINGS;
    }
};

PROPSHEETPAGEW Record(TestPage& page, UINT resource, const wchar_t* title) {
    PROPSHEETPAGEW record = {};
    record.dwSize = sizeof record;
    record.dwFlags = title ? PSP_USETITLE : 0;
    record.hInstance = GetModuleHandleW(nullptr);
    record.pszTemplate = MAKEINTRESOURCEW(resource);
    record.pszTitle = title;
    record.pfnDlgProc = TestPage::Procedure;
    record.lParam = reinterpret_cast<LPARAM>(&page);
    return record;
}

class Sheet : public testing::Test {
  protected:
    using Steps = std::vector<std::function<void()>>;

    Sheet() {
        s_running = this;
        owner = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr,
                                nullptr, nullptr);
        records = {Record(one, IDD_PAGE_ONE, L"First"), Record(two, IDD_PAGE_TWO, L"Second")};
        header.dwSize = sizeof header;
        header.dwFlags = PSH_PROPSHEETPAGE | PSH_NOAPPLYNOW;
        header.hwndParent = owner;
        header.hInstance = GetModuleHandleW(nullptr);
        header.pszCaption = L"Options";
    }
    ~Sheet() override {
        if (IsWindow(owner)) DestroyWindow(owner);
        s_running = nullptr;
    }

    // Opens the sheet and takes the steps one by one, each once everything before it has been handled.
    INT_PTR Show(Steps script, bool withPages = true) {
        steps = std::move(script);
        next = 0;
        idle = 0;
        sheet = nullptr;
        header.nPages = withPages ? 2 : 0;
        header.ppsp = records.data();
        timer = SetTimer(nullptr, 0, 10, OnTimer);
        const INT_PTR result = PropertySheetW(&header);
        KillTimer(nullptr, timer);
        return result;
    }

    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        Sheet& test = *s_running;
        if (!test.sheet) {
            EnumThreadWindows(
                GetCurrentThreadId(),
                [](HWND window, LPARAM parameter) -> BOOL {
                    auto& self = *reinterpret_cast<Sheet*>(parameter);
                    if (GetWindow(window, GW_OWNER) != self.owner || !IsWindowVisible(window)) return TRUE;
                    self.sheet = window;
                    return FALSE;
                },
                reinterpret_cast<LPARAM>(&test));
            if (!test.sheet) return;
        }
        if (test.next < test.steps.size()) {
            test.steps[test.next++]();
        } else if (++test.idle == 200) {
            ADD_FAILURE() << "the sheet was not closed";
            DestroyWindow(test.sheet);
        }
    }

    void Press(WPARAM button) const { PostMessageW(sheet, PSM_PRESSBUTTON, button, 0); }
    void Key(WPARAM key) const { PostMessageW(GetFocus(), WM_KEYDOWN, key, 0); }
    HWND Tabs() const { return reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETTABCONTROL, 0, 0)); }
    HWND Front() const { return reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0)); }
    void TapTab(int tab) const {
        RECT place = {};
        SendMessageW(Tabs(), TCM_GETITEMRECT, tab, reinterpret_cast<LPARAM>(&place));
        const LPARAM at = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
        PostMessageW(Tabs(), WM_LBUTTONDOWN, MK_LBUTTON, at);
        PostMessageW(Tabs(), WM_LBUTTONUP, 0, at);
    }
    RECT PlaceIn(HWND window) const {
        RECT place;
        GetWindowRect(window, &place);
        MapWindowPoints(nullptr, sheet, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }

    HWND owner, sheet = nullptr;
    std::string log;
    TestPage one{"1", log}, two{"2", log};
    std::vector<PROPSHEETPAGEW> records;
    PROPSHEETHEADERW header = {};
    Steps steps;
    size_t next = 0;
    int idle = 0;
    UINT_PTR timer = 0;
    static inline Sheet* s_running = nullptr;
};

TEST_F(Sheet, WithoutPagesIsAnEmptyScreenWithOk) {
    EXPECT_EQ(1, Show({[&] {
                           RECT client;
                           GetClientRect(sheet, &client);
                           EXPECT_EQ(240, client.right);
                           EXPECT_EQ(268, client.bottom);
                           EXPECT_EQ(nullptr, Tabs());
                           EXPECT_EQ(nullptr, Front());
                           wchar_t title[16] = L"";
                           GetWindowTextW(sheet, title, 16);
                           EXPECT_STREQ(L"Options", title);
                           HDC to = GetDC(sheet);
                           EXPECT_EQ(RGB(255, 255, 255), GetPixel(to, 120, 134));
                           ReleaseDC(sheet, to);
                       },
                       [&] { Press(PSBTN_OK); }},
                      false));
}

TEST_F(Sheet, WithoutPagesMayBeCancelled) {
    EXPECT_EQ(0, Show({[&] { Press(PSBTN_CANCEL); }}, false));
    EXPECT_EQ(0, Show({[&] { PostMessageW(sheet, WM_CLOSE, 0, 0); }}, false));
    EXPECT_EQ(0, Show({[&] { PostMessageW(sheet, WM_KEYDOWN, VK_ESCAPE, 0); }}, false));
    EXPECT_EQ(0,
              Show({[&] { PostMessageW(sheet, PSM_SETCURSEL, 0, 0); }, [&] { Press(PSBTN_CANCEL); }}, false));
}

TEST_F(Sheet, TheTitleBarsButtonIsOk) {
    EXPECT_EQ(1, Show({[&] {
                  RECT place;
                  GetWindowRect(sheet, &place);
                  const LPARAM at = MAKELPARAM(place.left + 226, place.top + 13);
                  SendMessageW(sheet, WM_NCLBUTTONDOWN, HTCLOSE, at);
                  POINT client = {place.left + 226, place.top + 13};
                  ScreenToClient(sheet, &client);
                  SendMessageW(sheet, WM_LBUTTONUP, 0, MAKELPARAM(client.x, client.y));
              }}));
    EXPECT_EQ("1 active;1 kill;1 apply!;", log);
}

TEST_F(Sheet, ThePageReachesFromTheTitleBarToTheTabs) {
    Show({[&] {
              const RECT page = PlaceIn(Front()), tabs = PlaceIn(Tabs());
              EXPECT_EQ(0, page.left);
              EXPECT_EQ(0, page.top);
              EXPECT_EQ(240, page.right);
              EXPECT_EQ(tabs.top, page.bottom);
              EXPECT_EQ(268, tabs.bottom);
              EXPECT_EQ(240, tabs.right);
              EXPECT_EQ(0, GetWindowLongW(Front(), GWL_STYLE) & (WS_CAPTION | WS_POPUP | WS_DISABLED));
              EXPECT_EQ(GetDlgItem(Front(), IDC_TEXT), GetFocus());
              HDC to = GetDC(Front());
              EXPECT_EQ(RGB(255, 255, 255), GetPixel(to, 230, 230));
              ReleaseDC(Front(), to);
          },
          [&] { Press(PSBTN_CANCEL); }});
}

TEST_F(Sheet, ATapOnATabGoesThere) {
    Show({[&] { TapTab(1); },
          [&] {
              EXPECT_EQ(two.window, Front());
              EXPECT_TRUE(IsWindowVisible(two.window));
              EXPECT_FALSE(IsWindowVisible(one.window));
          },
          [&] { TapTab(0); },
          [&] {
              EXPECT_EQ(one.window, Front());
              EXPECT_FALSE(IsWindowVisible(two.window));
          },
          [&] { Press(PSBTN_OK); }});
    EXPECT_EQ("1 active;1 kill;2 active;2 kill;1 active;1 kill;1 apply!;2 apply!;", log);
}

TEST_F(Sheet, APageThatStaysKeepsItsTab) {
    one.killAnswer = 1;
    EXPECT_EQ(0, Show({[&] { TapTab(1); },
                       [&] {
                           EXPECT_EQ(one.window, Front());
                           EXPECT_EQ(0, SendMessageW(Tabs(), TCM_GETCURSEL, 0, 0));
                       },
                       [&] { Press(PSBTN_OK); }, [&] { Press(PSBTN_CANCEL); }}));
    EXPECT_EQ("1 active;1 kill;1 kill;1 query;1 reset;", log);
}

TEST_F(Sheet, TheKeyboardGoesRoundThePages) {
    const auto control = [](BYTE state) {
        BYTE keys[256];
        GetKeyboardState(keys);
        keys[VK_CONTROL] = state;
        SetKeyboardState(keys);
    };
    Show({[&] {
              control(0x80);
              SendMessageW(sheet, WM_NULL, 0, 0);
              Key(VK_TAB);
          },
          [&] { EXPECT_EQ(two.window, Front()); }, [&] { Key(VK_TAB); },
          [&] { EXPECT_EQ(one.window, Front()); },
          [&] {
              control(0);
              Key(VK_TAB);
          },
          [&] { EXPECT_EQ(GetDlgItem(one.window, IDC_NUMBER), GetFocus()); }, [&] { Key(VK_ESCAPE); }});
    EXPECT_EQ("1 active;1 kill;2 active;2 kill;1 active;1 query;1 reset;2 reset;", log);
}

TEST_F(Sheet, TheCrossIsToldFromCancel) {
    Show({[&] { PostMessageW(sheet, WM_CLOSE, 0, 0); }});
    EXPECT_EQ("1 active;1 query;1 reset!;", log);
}

TEST_F(Sheet, APageMayForbidCancelling) {
    one.cancelAnswer = 1;
    EXPECT_EQ(1, Show({[&] { Press(PSBTN_CANCEL); }, [&] { Press(PSBTN_OK); }}));
    EXPECT_EQ("1 active;1 query;1 kill;1 apply!;", log);
}

TEST_F(Sheet, APageBehindThatRefusesComesToTheFront) {
    one.applyAnswer = PSNRET_INVALID;
    EXPECT_EQ(0, Show({[&] { TapTab(1); }, [&] { Press(PSBTN_OK); }, [&] { EXPECT_EQ(one.window, Front()); },
                       [&] { Press(PSBTN_CANCEL); }}));
    EXPECT_EQ("1 active;1 kill;2 active;2 kill;1 apply!;1 active;1 query;1 reset;2 reset;", log);
}

TEST_F(Sheet, APageMayRefuseFromBehind) {
    one.applyAnswer = PSNRET_INVALID_NOCHANGEPAGE;
    EXPECT_EQ(0, Show({[&] { TapTab(1); }, [&] { Press(PSBTN_OK); }, [&] { EXPECT_EQ(two.window, Front()); },
                       [&] { Press(PSBTN_CANCEL); }}));
}

TEST_F(Sheet, ApplyingLeavesItOpen) {
    EXPECT_EQ(
        0, Show({[&] { EXPECT_TRUE(SendMessageW(sheet, PSM_APPLY, 0, 0)); }, [&] { Press(PSBTN_CANCEL); }}));
    EXPECT_EQ("1 active;1 kill;1 apply;1 query;1 reset;", log);
}

TEST_F(Sheet, StartsWithThePageChosen) {
    header.nStartPage = 1;
    Show({[&] { EXPECT_EQ(1, SendMessageW(Tabs(), TCM_GETCURSEL, 0, 0)); }, [&] { Press(PSBTN_OK); }});
    EXPECT_EQ("2 active;2 kill;2 apply!;", log);
    log.clear();
    header.nStartPage = 9;
    Show({[&] { Press(PSBTN_OK); }});
    EXPECT_EQ("1 active;1 kill;1 apply!;", log);
}

TEST_F(Sheet, PagesMayComeAsHandlesAndTakeTheirTitleFromTheTemplate) {
    HPROPSHEETPAGE handles[2];
    for (int i = 0; i < 2; ++i) {
        records[i].dwFlags = 0;
        handles[i] = CreatePropertySheetPageW(&records[i]);
        ASSERT_NE(nullptr, handles[i]);
    }
    header.dwFlags = 0;
    header.nPages = 2;
    header.phpage = handles;
    steps = {[&] {
                 wchar_t title[16] = L"";
                 TCITEMW item = {};
                 item.mask = TCIF_TEXT;
                 item.pszText = title;
                 item.cchTextMax = 16;
                 SendMessageW(Tabs(), TCM_GETITEMW, 1, reinterpret_cast<LPARAM>(&item));
                 EXPECT_STREQ(L"Two", title);
                 EXPECT_TRUE(SendMessageW(sheet, PSM_SETCURSEL, 0, reinterpret_cast<LPARAM>(handles[1])));
             },
             [&] { EXPECT_EQ(two.window, Front()); }, [&] { Press(PSBTN_OK); }};
    timer = SetTimer(nullptr, 0, 10, OnTimer);
    EXPECT_EQ(1, PropertySheetW(&header));
    KillTimer(nullptr, timer);
    EXPECT_TRUE(DestroyPropertySheetPage(CreatePropertySheetPageW(records.data())));
    EXPECT_FALSE(DestroyPropertySheetPage(nullptr));
}

TEST_F(Sheet, TitlesMayBeResources) {
    header.pszCaption = MAKEINTRESOURCEW(IDS_SHORT);
    Show({[&] {
              wchar_t title[16] = L"";
              GetWindowTextW(sheet, title, 16);
              EXPECT_STREQ(L"Settings", title);
              SendMessageW(sheet, PSM_SETTITLEW, 0, reinterpret_cast<LPARAM>(L"Other"));
              GetWindowTextW(sheet, title, 16);
              EXPECT_STREQ(L"Other", title);
          },
          [&] { Press(PSBTN_CANCEL); }});
}

TEST_F(Sheet, SiblingsAreAskedUntilOneAnswers) {
    two.siblingAnswer = 5;
    Show({[&] { EXPECT_EQ(0, SendMessageW(sheet, PSM_QUERYSIBLINGS, 1, 2)); }, [&] { TapTab(1); },
          [&] { EXPECT_EQ(5, SendMessageW(sheet, PSM_QUERYSIBLINGS, 1, 2)); }, [&] { Press(PSBTN_CANCEL); }});
}

TEST_F(Sheet, OnlyOneThatWasNotDisabledEnablesItsOwner) {
    Show({[&] { EXPECT_FALSE(IsWindowEnabled(owner)); }, [&] { Press(PSBTN_CANCEL); }});
    EXPECT_TRUE(IsWindowEnabled(owner));
    EnableWindow(owner, FALSE);
    Show({[&] { Press(PSBTN_CANCEL); }});
    EXPECT_FALSE(IsWindowEnabled(owner));
}

TEST_F(Sheet, BadRecordsAreRefused) {
    const auto refused = [&] {
        header.nPages = 2;
        header.ppsp = records.data();
        EXPECT_EQ(-1, PropertySheetW(&header));
        EXPECT_TRUE(IsWindowEnabled(owner));
    };
    EXPECT_EQ(-1, PropertySheetW(nullptr));
    records[1].pszTemplate = MAKEINTRESOURCEW(9999);
    refused();
    EXPECT_EQ(nullptr, CreatePropertySheetPageW(&records[1]));
    records[1].pszTemplate = MAKEINTRESOURCEW(IDD_PAGE_TWO);
    records[1].dwSize = 4;
    refused();
    records[1].dwSize = sizeof records[1];
    header.dwFlags |= PSH_MODELESS;
    refused();
    header.dwFlags &= ~PSH_MODELESS;
    header.dwSize = 8;
    refused();
    EXPECT_EQ("", log);
}

TEST_F(Sheet, EndsWithTheProgram) {
    EXPECT_EQ(0, Show({[&] { PostQuitMessage(7); }}));
    MSG message = {};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(7u, message.wParam);
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(Sheet, ItsOwnerMayCloseWhileAPageIsAsked) {
    one.onKill = [&] { DestroyWindow(owner); };
    EXPECT_EQ(0, Show({[&] { PostMessageW(sheet, PSM_SETCURSEL, 1, 0); }}));
    EXPECT_EQ("1 active;1 kill;", log);
    EXPECT_EQ(nullptr, two.window);
}

TEST_F(Sheet, GoesWithoutTrace) {
    constexpr int kRounds = 30;
    constexpr int kKept = 10;  // by the system for the next time, however often
    const auto once = [&] { Show({[&] { TapTab(1); }, [&] { Press(PSBTN_OK); }}); };
    once();
    const ProcessCounts counts = CountHeld(GetCurrentProcess());
    for (int i = 0; i < kRounds; ++i) once();
    const ProcessCounts later = CountHeld(GetCurrentProcess());
    EXPECT_LE(later.handles, counts.handles + kKept);
    EXPECT_LE(later.gdiObjects, counts.gdiObjects + kKept);
    EXPECT_LE(later.userObjects, counts.userObjects + kKept);
}

}  // namespace
