// Property sheets: which pages hear what when the sheet is opened, leafed through and closed.
#include "framework/property_sheet.h"

#include "test_resources.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

constexpr UINT kMsgNextStep = WM_USER + 100;

class CTestPage : public CPropertyPage {
  public:
    CTestPage(UINT templateId, const wchar_t* title, std::string name, std::string& log)
        : CPropertyPage(templateId, title), m_name(std::move(name)), m_log(log) {}

    std::vector<std::function<void()>> steps;  // run one by one while the sheet is open
    bool mayLeave = true;
    bool agrees = true;

    HWND Sheet() const { return GetParent(Hwnd()); }
    void Press(int button) const { PostMessageW(Sheet(), PSM_PRESSBUTTON, button, 0); }

    Reply OnMessage(const Message& message) override {
        using On = HandlersOf<CTestPage>;
        static constexpr MessageRow rows[] = {On::message<kMsgNextStep, &CTestPage::OnNextStep>};
        return Dispatch<rows, CPropertyPage>(*this, message);
    }

  protected:
    bool OnInitDialog() override {
        CPropertyPage::OnInitDialog();
        Log("init");
        PostMessageW(Hwnd(), kMsgNextStep, 0, 0);
        return true;
    }
    void OnSetActive() override { Log("active"); }
    bool OnKillActive() override {
        Log("kill");
        return mayLeave && CPropertyPage::OnKillActive();
    }
    bool OnOK() override {
        Log("ok");
        return agrees;
    }
    void OnCancel() override { Log("cancel"); }

    void Log(const char* what) { m_log += m_name + " " + what + ";"; }

  private:
    void OnNextStep() {
        if (m_next == steps.size()) return;
        steps[m_next++]();
        PostMessageW(Hwnd(), kMsgNextStep, 0, 0);
    }

    const std::string m_name;
    std::string& m_log;
    std::size_t m_next = 0;
};

class CNumberPage : public CTestPage {
  public:
    using CTestPage::CTestPage;
    int m_number = 5;

  protected:
    bool Exchange(ExchangeDirection direction) override {
        using Data = MembersOf<CNumberPage>;
        static constexpr ExchangeRow rows[] = {Data::number<IDC_NUMBER, &CNumberPage::m_number>};
        return ExchangeAll<rows>(*this, direction);
    }
};

class PropertySheetTest : public ::testing::Test {
  protected:
    PropertySheetTest() {
        sheet.AddPage(one);
        sheet.AddPage(two);
    }

    // Opens the sheet, runs the steps from the first page, and gives the sheet's result.
    int Show(std::vector<std::function<void()>> steps) {
        one.steps = std::move(steps);
        return sheet.DoModal(nullptr);
    }

    std::string log;
    CNumberPage one{IDD_PAGE_ONE, L"One", "1", log};
    CTestPage two{IDD_PAGE_TWO, L"Two", "2", log};
    CPropertySheet sheet{L"Settings"};
};

TEST_F(PropertySheetTest, OkReachesOnlyPagesThatWereShown) {
    EXPECT_EQ(IDOK, Show({[&] { one.Press(PSBTN_OK); }}));
    EXPECT_EQ("1 init;1 active;1 kill;1 ok;", log);
    EXPECT_EQ(nullptr, one.Hwnd());
}

TEST_F(PropertySheetTest, OkReachesEveryPageThatWasShown) {
    EXPECT_EQ(IDOK,
              Show({[&] { SendMessageW(one.Sheet(), PSM_SETCURSEL, 1, 0); }, [&] { one.Press(PSBTN_OK); }}));
    EXPECT_EQ("1 init;1 active;1 kill;2 init;2 active;2 kill;1 ok;2 ok;", log);
}

TEST_F(PropertySheetTest, CancelStoresNothing) {
    EXPECT_EQ(IDCANCEL, Show({[&] { one.Press(PSBTN_CANCEL); }}));
    EXPECT_EQ("1 init;1 active;1 cancel;", log);
}

TEST_F(PropertySheetTest, PageMayRefuseToBeLeft) {
    one.mayLeave = false;
    EXPECT_EQ(IDOK, Show({[&] { SendMessageW(one.Sheet(), PSM_SETCURSEL, 1, 0); },
                          [&] { EXPECT_EQ(nullptr, two.Hwnd()); }, [&] { one.Press(PSBTN_OK); },
                          [&] { one.mayLeave = true; }, [&] { one.Press(PSBTN_OK); }}));
    EXPECT_EQ("1 init;1 active;1 kill;1 kill;1 kill;1 ok;", log);
}

TEST_F(PropertySheetTest, PageMayRefuseTheOk) {
    one.agrees = false;
    EXPECT_EQ(IDOK, Show({[&] { one.Press(PSBTN_OK); }, [&] { EXPECT_NE(nullptr, one.Hwnd()); },
                          [&] { one.agrees = true; }, [&] { one.Press(PSBTN_OK); }}));
    EXPECT_EQ("1 init;1 active;1 kill;1 ok;1 kill;1 ok;", log);
}

TEST_F(PropertySheetTest, LeavingAPageTakesItsControls) {
    EXPECT_EQ(IDOK, Show({[&] { SetDlgItemInt(one.Hwnd(), IDC_NUMBER, 77, TRUE); },
                          [&] { SendMessageW(one.Sheet(), PSM_SETCURSEL, 1, 0); },
                          [&] { EXPECT_EQ(77, one.m_number); }, [&] { one.Press(PSBTN_OK); }}));
    EXPECT_EQ(77, one.m_number);
}

TEST_F(PropertySheetTest, UnreadableControlKeepsThePage) {
    EXPECT_EQ(IDCANCEL,
              Show({[&] { SetDlgItemTextW(one.Hwnd(), IDC_NUMBER, L""); }, [&] { one.Press(PSBTN_OK); },
                    [&] { EXPECT_NE(nullptr, one.Hwnd()); }, [&] { one.Press(PSBTN_CANCEL); }}));
    EXPECT_EQ(5, one.m_number);
}

TEST_F(PropertySheetTest, TitlesAndCaptionAreShown) {
    Show({[&] {
              wchar_t caption[40] = L"";
              GetWindowTextW(one.Sheet(), caption, 40);
              EXPECT_STREQ(L"Settings", caption);
              wchar_t title[40] = L"";
              TCITEMW item = {};
              item.mask = TCIF_TEXT;
              item.pszText = title;
              item.cchTextMax = 40;
              const HWND tabs = reinterpret_cast<HWND>(SendMessageW(one.Sheet(), PSM_GETTABCONTROL, 0, 0));
              SendMessageW(tabs, TCM_GETITEMW, 1, reinterpret_cast<LPARAM>(&item));
              EXPECT_STREQ(L"Two", title);
          },
          [&] { one.Press(PSBTN_CANCEL); }});
}

TEST_F(PropertySheetTest, CanBeOpenedAgain) {
    Show({[&] { one.Press(PSBTN_CANCEL); }});
    log.clear();
    CNumberPage again{IDD_PAGE_ONE, L"One", "1", log};
    CPropertySheet second{L"Settings"};
    second.AddPage(again);
    again.steps = {[&] { again.Press(PSBTN_OK); }};
    EXPECT_EQ(IDOK, second.DoModal(nullptr));
    EXPECT_EQ("1 init;1 active;1 kill;1 ok;", log);
}

TEST_F(PropertySheetTest, DestroyedOwnerEndsIt) {
    const HWND owner =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    one.steps = {[&] { DestroyWindow(owner); }};
    EXPECT_EQ(IDCANCEL, sheet.DoModal(owner));
    EXPECT_EQ(nullptr, one.Hwnd());
}

}  // namespace
