#include "settings/about_time.h"

#include <gtest/gtest.h>

namespace {

TEST(AboutTime, FourBlanksThenTheWholeMoment) {
    EXPECT_EQ(L"    Tue Mar 05 07:08:09 2002", AboutTimeText({2002, 3, 5, 2, 7, 8, 9}));
}

TEST(AboutTime, WideNumbersNeedNoZeros) {
    EXPECT_EQ(L"    Fri Dec 31 23:59:58 1999", AboutTimeText({1999, 12, 31, 5, 23, 59, 58}));
}

TEST(AboutTime, MidnightAndEarlyYearsAreFilledUp) {
    EXPECT_EQ(L"    Mon Jan 01 00:00:00 0007", AboutTimeText({7, 1, 1, 1, 0, 0, 0}));
}

TEST(AboutTime, EveryWeekdayAndMonthHasItsName) {
    const wchar_t* const weekdays[] = {L"Sun", L"Mon", L"Tue", L"Wed", L"Thu", L"Fri", L"Sat"};
    for (unsigned day = 0; day < 7; ++day)
        EXPECT_EQ(weekdays[day], AboutTimeText({2026, 6, 15, day, 12, 0, 0}).substr(4, 3));
    const wchar_t* const months[] = {L"Jan", L"Feb", L"Mar", L"Apr", L"May", L"Jun",
                                     L"Jul", L"Aug", L"Sep", L"Oct", L"Nov", L"Dec"};
    for (unsigned month = 1; month <= 12; ++month)
        EXPECT_EQ(months[month - 1], AboutTimeText({2026, month, 15, 0, 12, 0, 0}).substr(8, 3));
}

}  // namespace
