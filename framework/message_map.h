// Message maps.  A window class has one table, a row per message, in the order of its handlers:
//
//     Reply CCameraDlg::OnMessage(const Message& message) {
//         using On = HandlersOf<CCameraDlg>;
//         static constexpr MessageRow rows[] = {
//             On::message<WM_TIMER, &CCameraDlg::OnTimer>,              // void OnTimer(UINT_PTR id)
//             On::message<kMsgClockTick, &CCameraDlg::OnClockTick>,     // WM_USER + n: void (WPARAM, LPARAM)
//             On::colors<&CCameraDlg::OnColors>,                        // HBRUSH OnColors(HDC, HWND control)
//             On::command<ID_FILE_EXIT, &CCameraDlg::OnExit>,           // menu item or button: void ()
//             On::control<IDC_NAME, EN_CHANGE, &CCameraDlg::OnName>,    // what a control tells: void ()
//             On::notify<IDC_LIST, NM_CLICK, &CCameraDlg::OnListTap>,   // void OnListTap(const NMHDR&)
//         };
//         return Dispatch<rows, CDialog>(*this, message);
//     }
//
// Parameters: exactly those that message_crackers.h lists for the message, or none at all.
// Result: how things go on is said by the handler's return type or value.
//     void      done, with the message's usual result
//     Then      Then::done as above; Then::defaultHandling goes on with the base class, then with the system
//     LRESULT   done, with this result
//     HBRUSH    done, with this brush; null goes on as above
//     Reply     done with the result it holds; empty goes on as above
// Mistakes do not compile: other parameters or results, a handler of another class, one message twice.
#pragma once
#include "framework/message_row.h"

#include <cstddef>
#include <iterator>

inline constexpr UINT kAnySender = ~0u;  // On::notify: whoever sends this code

template <class Window>
struct HandlersOf {
    template <UINT number, auto handler>
    static constexpr MessageRow message = [] {
        static_assert(
            number != WM_COMMAND && number != WM_NOTIFY,
            "WM_COMMAND and WM_NOTIFY have rows of their own: On::command, On::control, On::notify.");
        static_assert(!std::is_base_of_v<NoCracker, Cracker<number>>,
                      "This message has no cracker yet: add its line to message_crackers.h.");
        using Known = std::conditional_t<std::is_base_of_v<NoCracker, Cracker<number>>, CarriesParameters,
                                         Cracker<number>>;
        return MessageRow{number, number, 0, 0, &RowCall<Window, Known, handler>::Handle};
    }();

    template <UINT id, auto handler>
    static constexpr MessageRow command = {WM_COMMAND, WM_COMMAND, id, BN_CLICKED,
                                           &RowCall<Window, CarriesNothing, handler>::Handle};

    template <UINT id, UINT code, auto handler>
    static constexpr MessageRow control = {WM_COMMAND, WM_COMMAND, id, code,
                                           &RowCall<Window, CarriesNothing, handler>::Handle};

    template <UINT id, UINT code, auto handler>
    static constexpr MessageRow notify = {WM_NOTIFY, WM_NOTIFY, id, code,
                                          &RowCall<Window, NotifyCracker<code>, handler>::Handle};

    template <auto handler>  // every kind of control, and the dialog itself
    static constexpr MessageRow colors = {WM_CTLCOLORMSGBOX, WM_CTLCOLORSTATIC, 0, 0,
                                          &RowCall<Window, CarriesColors, handler>::Handle};
};

template <std::size_t count>
constexpr bool EachMessageOnce(const MessageRow (&rows)[count]) {
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t k = i + 1; k < count; ++k) {
            if (rows[i].first <= rows[k].last && rows[k].first <= rows[i].last && rows[i].id == rows[k].id &&
                rows[i].code == rows[k].code) {
                return false;
            }
        }
    }
    return true;
}

// The first row for a message, or null.
const MessageRow* FindRow(const MessageRow* rows, std::size_t count, const Message& message);

// Calls the handler of the message; what it leaves open goes to the base class.
template <const auto& rows, class Base, class Window>
Reply Dispatch(Window& window, const Message& message) {
    static_assert(EachMessageOnce(rows), "A message table lists the same message twice.");
    static_assert(std::is_base_of_v<Base, Window>,
                  "A message table goes on to a base of its own window class.");
    if (const MessageRow* row = FindRow(rows, std::size(rows), message)) {
        if (const Reply reply = row->handle(window, message)) return reply;
    }
    return window.Base::OnMessage(message);
}
