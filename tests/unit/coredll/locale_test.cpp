#include "store_fixture.h"

TEST(Locale, ComesFromTheSetting) {
    const Setting korean(L"HANDHELD_LCID", L"1042");
    EXPECT_EQ(GetSystemDefaultLCID(), 1042u);
    EXPECT_EQ(GetUserDefaultLCID(), 1042u);
    EXPECT_EQ(GetSystemDefaultLangID(), 1042);
    EXPECT_EQ(GetUserDefaultUILanguage(), 1042);
}

TEST(Locale, NonsenseMeansTheDesktops) {
    SetEnvironmentVariableW(L"HANDHELD_LCID", nullptr);
    const LCID desktop = GetSystemDefaultLCID();
    EXPECT_NE(desktop, 0u);
    for (const wchar_t* text : {L"", L"de", L"0x407", L"-5", L"99999999999"}) {
        const Setting bad(L"HANDHELD_LCID", text);
        EXPECT_EQ(GetSystemDefaultLCID(), desktop) << text;
    }
}
