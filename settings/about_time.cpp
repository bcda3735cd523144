#include "settings/about_time.h"

#include <cstddef>

namespace {

constexpr const wchar_t* kWeekdays[] = {L"Sun", L"Mon", L"Tue", L"Wed", L"Thu", L"Fri", L"Sat"};
constexpr const wchar_t* kMonths[] = {L"Jan", L"Feb", L"Mar", L"Apr", L"May", L"Jun",
                                      L"Jul", L"Aug", L"Sep", L"Oct", L"Nov", L"Dec"};

std::wstring Digits(unsigned number, std::size_t atLeast) {
    std::wstring digits;
    for (; number != 0 || digits.size() < atLeast; number /= 10)
        digits.insert(digits.begin(), static_cast<wchar_t>(L'0' + number % 10));
    return digits;
}

}  // namespace

std::wstring AboutTimeText(const UtcTime& time) {
    return std::wstring(kAboutTimeBlanks) + kWeekdays[time.weekday] + L" " + kMonths[time.month - 1] + L" " +
           Digits(time.day, 2) + L" " + Digits(time.hour, 2) + L":" + Digits(time.minute, 2) + L":" +
           Digits(time.second, 2) + L" " + Digits(time.year, 4);
}
