// The date and time line of the About dialog.  Portable.
#pragma once
#include <string>

// A moment in UTC, within the ranges that a system clock keeps to.
struct UtcTime {
    unsigned year;
    unsigned month;    // 1..12
    unsigned day;      // 1..31
    unsigned weekday;  // 0 Sunday .. 6 Saturday
    unsigned hour, minute, second;
};

inline constexpr wchar_t kAboutTimeBlanks[] = L"    ";

// "    Tue Mar 05 07:08:09 2002": four blanks first, English names in every language.
std::wstring AboutTimeText(const UtcTime& time);
