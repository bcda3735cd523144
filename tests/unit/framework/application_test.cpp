#include "framework/application.h"

#include "framework/dialog.h"
#include "framework/program_module.h"
#include "scripted_dialog.h"
#include "test_resources.h"

#include <gtest/gtest.h>

namespace {

class CTestApp : public CApplication {
  public:
    bool runs = false;
    int handled = 0;

  protected:
    bool InitInstance() override {
        SetRegistryKey(L"\\Zel");
        if (runs) PostQuitMessage(21);
        return runs;
    }
    int Run() override {
        ++handled;
        return CApplication::Run();
    }
};

TEST(Application, EndsWithZeroWhenItsStartHasDoneTheWork) {
    CTestApp app;
    EXPECT_EQ(0, RunApplication(app, L""));
    EXPECT_EQ(0, app.handled);
}

TEST(Application, RunsUntilQuit) {
    CTestApp app;
    app.runs = true;
    EXPECT_EQ(21, RunApplication(app, L""));
    EXPECT_EQ(1, app.handled);
}

TEST(Application, KeepsWhatTheProgramWasStartedWith) {
    CTestApp app;
    RunApplication(app, L"-x y");
    EXPECT_EQ(L"-x y", app.CommandLine());
    RunApplication(app, nullptr);
    EXPECT_EQ(L"", app.CommandLine());
}

TEST(Application, KeepsTheRegistryKeyAsGiven) {
    CTestApp app;
    RunApplication(app, L"");
    EXPECT_EQ(L"\\Zel", app.AppProfile().key);
}

TEST(Application, MayBeOneModalDialog) {
    class CDialogApp : public CApplication {
      public:
        int result = 0;

      protected:
        bool InitInstance() override {
            CScriptedDialog dialog(IDD_SMALL);
            dialog.steps = {[&] {
                EXPECT_EQ(&dialog, MainWindow());
                dialog.EndDialog(31);
            }};
            SetMainWindow(&dialog);
            result = dialog.DoModal(nullptr);
            SetMainWindow(nullptr);
            return false;
        }
    } app;
    EXPECT_EQ(0, RunApplication(app, L""));
    EXPECT_EQ(31, app.result);
    EXPECT_EQ(nullptr, app.MainWindow());
}

TEST(ProgramModule, FindsTexts) {
    EXPECT_EQ(L"Settings", ResourceText(IDS_SHORT));
    EXPECT_EQ(L"", ResourceText(IDS_NONE));
    const std::wstring longText = ResourceText(IDS_LONG);
    EXPECT_EQ(300u, longText.size());
    EXPECT_EQ(L"789", longText.substr(297));
}

TEST(ProgramModule, FindsResources) {
    EXPECT_NE(nullptr, ResourceBytes(IDD_SMALL, RT_DIALOG));
    EXPECT_EQ(nullptr, ResourceBytes(9999, RT_DIALOG));
    EXPECT_EQ(nullptr, ResourceBytes(IDD_SMALL, RT_MENU));
}

}  // namespace
