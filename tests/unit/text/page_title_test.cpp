#include <gtest/gtest.h>

#include <set>

#include "resources/resource.h"
#include "unit/text/module_strings.h"

TEST(PageTitles, EnglishReads) {
    EXPECT_EQ(L"Settings", moduleString(60001));
    EXPECT_EQ(L"Setup", moduleString(60002));
    EXPECT_EQ(L"File", moduleString(60003));
    EXPECT_EQ(L"Video", moduleString(60004));
}

TEST(PageTitles, FourDifferentOnesInEveryLanguagesScript) {
    for (unsigned language = 0; language < LANGUAGE_COUNT; ++language) {
        std::set<std::wstring> titles;
        for (unsigned page = 1; page <= 4; ++page) {
            const auto title = moduleString(60000 + 100 * language + page);
            EXPECT_TRUE(inScriptOf(language, title)) << "language " << language << ", page " << page;
            titles.insert(title);
        }
        EXPECT_EQ(4u, titles.size()) << language;
    }
}

// Four tabs share a screen of 240 pixels; a tab takes about six pixels a Latin letter and some 14 around it.
TEST(PageTitles, FitSideBySide) {
    for (unsigned language = 0; language < LANGUAGE_COUNT; ++language) {
        unsigned pixels = 0;
        for (unsigned page = 1; page <= 4; ++page) {
            pixels += 14;
            for (const wchar_t c : moduleString(60000 + 100 * language + page))
                pixels += c >= 0x1100 ? 12 : 6;
        }
        EXPECT_LE(pixels, 240u) << language;
    }
}
