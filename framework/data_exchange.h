// Data exchange between a dialog's members and its controls: one table, a row per control.
//
//     bool CVideoPage::Exchange(ExchangeDirection direction) {
//         using Data = MembersOf<CVideoPage>;
//         static constexpr ExchangeRow rows[] = {
//             Data::text<IDC_PREFIX, &CVideoPage::m_prefix>,      // std::wstring: the control's text
//             Data::number<IDC_COUNTER, &CVideoPage::m_counter>,  // int: the decimal number it begins with
//             Data::radio<IDC_FIRST_SIZE, &CVideoPage::m_size>,   // int: position in the group from here on
//             Data::check<IDC_SOUND, &CVideoPage::m_sound>,       // bool: check mark
//         };
//         return ExchangeAll<rows>(*this, direction);
//     }
//
// A row whose member has another type, or a control listed twice, does not compile.
#pragma once
#include "framework/window.h"

#include <cstddef>
#include <string>
#include <type_traits>

enum class ExchangeDirection { toControls, toMembers };

// Each moves one value.  False when the control's content cannot be taken; the value then stays as it was.
bool ExchangeText(HWND dialog, UINT control, std::wstring& text, ExchangeDirection direction);
bool ExchangeNumber(HWND dialog, UINT control, int& number, ExchangeDirection direction);
// A position outside the group checks no button; with no button checked the position stays as it was.
bool ExchangeRadio(HWND dialog, UINT firstControl, int& position, ExchangeDirection direction);
bool ExchangeCheck(HWND dialog, UINT control, bool& checked, ExchangeDirection direction);

struct ExchangeRow {
    UINT control;
    bool (*exchange)(CWindow& window, UINT control, ExchangeDirection direction);
};

template <class Window, class Value, auto exchange, auto member>
bool ExchangeMember(CWindow& window, UINT control, ExchangeDirection direction) {
    constexpr bool kTypeFits = std::is_convertible_v<decltype(member), Value Window::*>;
    static_assert(
        kTypeFits,
        "An exchanged member is the window's own std::wstring (text), int (number, radio) or bool (check).");
    if constexpr (kTypeFits) {
        return exchange(window.Hwnd(), control, static_cast<Window&>(window).*member, direction);
    } else {
        return false;
    }
}

template <class Window>
struct MembersOf {
    template <UINT control, auto member>
    static constexpr ExchangeRow text = {control,
                                         &ExchangeMember<Window, std::wstring, &ExchangeText, member>};
    template <UINT control, auto member>
    static constexpr ExchangeRow number = {control, &ExchangeMember<Window, int, &ExchangeNumber, member>};
    template <UINT control, auto member>
    static constexpr ExchangeRow radio = {control, &ExchangeMember<Window, int, &ExchangeRadio, member>};
    template <UINT control, auto member>
    static constexpr ExchangeRow check = {control, &ExchangeMember<Window, bool, &ExchangeCheck, member>};
};

template <std::size_t count>
constexpr bool EachControlOnce(const ExchangeRow (&rows)[count]) {
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t k = i + 1; k < count; ++k) {
            if (rows[i].control == rows[k].control) return false;
        }
    }
    return true;
}

// Moves all values in table order.  False: stopped at a control that cannot be taken, and gave it the focus.
template <const auto& rows>
bool ExchangeAll(CWindow& window, ExchangeDirection direction) {
    static_assert(EachControlOnce(rows), "An exchange table lists the same control twice.");
    for (const ExchangeRow& row : rows) {
        if (!row.exchange(window, row.control, direction)) {
            SetFocus(GetDlgItem(window.Hwnd(), static_cast<int>(row.control)));
            return false;
        }
    }
    return true;
}
