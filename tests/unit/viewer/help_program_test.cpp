#include "unit/viewer/program_fixture.h"

namespace viewer {
namespace {

constexpr RECT kPage = {0, 26, 220, 286};
constexpr const wchar_t* kArgument = L"file:Lumetta Mobile Camera Help.htm";

class HelpProgram : public CProgramFixture {
  protected:
    void StartHelp(const std::wstring& arguments) { Start(L"peghelp.exe", arguments, L"HandheldHelpViewer"); }
};

TEST_F(HelpProgram, ShowsThePageBesideTheProgram) {
    StartHelp(kArgument);
    ASSERT_TRUE(HasTitle(L"Camera Help"));
    EXPECT_TRUE(Ends());
}

TEST_F(HelpProgram, ShowsTheTranslationOfTheHandheldsLanguage) {
    SetEnvironmentVariableW(L"HANDHELD_LCID", L"1031");
    StartHelp(kArgument);
    ASSERT_TRUE(HasTitle(L"Kamerahilfe"));
    EXPECT_TRUE(Ends());
}

TEST_F(HelpProgram, AJapaneseHandheldGetsThePageItself) {
    SetEnvironmentVariableW(L"HANDHELD_LCID", L"1041");
    StartHelp(kArgument);
    ASSERT_TRUE(HasTitle(L"Camera Help"));
    EXPECT_TRUE(Ends());
}

TEST_F(HelpProgram, APageInTheStoreComesFirst) {
    Write(L"\\Windows\\Lumetta Mobile Camera Help.htm", "<title>From the store</title>x");
    StartHelp(kArgument);
    ASSERT_TRUE(HasTitle(L"From the store"));
    EXPECT_TRUE(Ends());
}

TEST_F(HelpProgram, ScrollsAndComesBack) {
    StartHelp(kArgument);
    ASSERT_TRUE(HasTitle(L"Camera Help"));
    ASSERT_TRUE(Shows(RGB(0, 0, 128), 20, 50));
    const uint32_t top = LookOf(kPage);
    Key(VK_NEXT);
    ASSERT_TRUE(LooksOtherThan(top, kPage));
    const uint32_t second = LookOf(kPage);
    Key(VK_END);
    ASSERT_TRUE(LooksOtherThan(second, kPage));
    const uint32_t bottom = LookOf(kPage);
    Key(VK_NEXT);
    Key(VK_BACK);
    EXPECT_TRUE(LooksLike(second, kPage));
    Key(VK_END);
    EXPECT_TRUE(LooksLike(bottom, kPage));
    Key(VK_HOME);
    EXPECT_TRUE(LooksLike(top, kPage));
    EXPECT_TRUE(Ends());
}

TEST_F(HelpProgram, LinksAreFollowedByKeyAndByTap) {
    Write(L"\\Windows\\a.htm", "<a href='#x'>" + std::string(40, 'W') + "</a>" + std::string(60, 'h') +
                                   "<p>" + std::string(4000, 'm') + "<h2 id=x>x</h2>" +
                                   std::string(4000, 'n'));
    StartHelp(L"a.htm");
    ASSERT_TRUE(HasTitle(L"Help"));
    const uint32_t top = LookOf(kPage);
    Click(60, 26 + 12);
    ASSERT_TRUE(LooksOtherThan(top, kPage));
    const uint32_t target = LookOf(kPage);
    Key(VK_HOME);
    ASSERT_TRUE(LooksOtherThan(target, kPage));
    Key(VK_TAB);
    Key(VK_RETURN);
    EXPECT_TRUE(LooksLike(target, kPage));
    EXPECT_TRUE(Ends());
}

TEST_F(HelpProgram, AMissingPageIsToldOnTheScreen) {
    StartHelp(L"file:No such page.htm");
    ASSERT_TRUE(HasTitle(L"Help"));
    for (WPARAM key : {VK_NEXT, VK_END, VK_TAB, VK_RETURN, VK_BACK, VK_HOME}) Key(key);
    EXPECT_TRUE(Ends());
}

TEST_F(HelpProgram, HostilePagesAreNoHarm) {
    const std::string pages[] = {std::string(1 << 20, '<'), std::string(1 << 20, 'x'),
                                 std::string(300000, '\xFF'), std::string(2 << 20, 'x'), ""};
    for (const std::string& page : pages) {
        Write(L"\\Windows\\a.htm", page);
        StartHelp(L"a.htm");
        EXPECT_TRUE(Ends());
    }
    StartHelp(L"file:..\\..\\a.htm");
    EXPECT_TRUE(Ends());
}

}  // namespace
}  // namespace viewer
