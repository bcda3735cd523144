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
// A mistake in a table does not compile: other parameters or results, a handler of another class, a message
// twice.
#pragma once
#include "framework/message_crackers.h"

#include <cstddef>
#include <iterator>
#include <optional>
#include <type_traits>

class CWindow;

struct Message {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

enum class Then { done, defaultHandling };

// The result of a handled message; empty: default handling follows.  Nothing about a message in progress is
// kept anywhere else, so a handler may send messages to its own window.
using Reply = std::optional<LRESULT>;

struct MessageRow {
    UINT first, last;  // messages, both included
    UINT id;           // of the command, control or sender; 0 for other messages
    UINT code;         // of the notification; 0 for other messages
    Reply (*handle)(CWindow&, const Message&);
};

inline constexpr UINT kAnySender = ~0u;  // On::notify: whoever sends this code

// The first row for a message, or null.
const MessageRow* FindRow(const MessageRow* rows, std::size_t count, const Message& message);

template <class Window, class Cracker, auto handler>
struct RowCall {
    static_assert(!sizeof(Window), "A message handler is a member function that is not const.");
    static Reply Handle(CWindow&, const Message&);
};

template <class Window, class Cracker, class Class, class Result, class... Parameters,
          Result (Class::*handler)(Parameters...)>
struct RowCall<Window, Cracker, handler> {
    static constexpr bool kNoParameters = sizeof...(Parameters) == 0;
    static constexpr bool kParametersFit =
        kNoParameters || std::is_same_v<std::tuple<Parameters...>, typename Cracker::Arguments>;
    static constexpr bool kResultFits =
        (std::is_same_v<Result, void> || std::is_same_v<Result, Then> || std::is_same_v<Result, LRESULT> ||
         std::is_same_v<Result, HBRUSH> || std::is_same_v<Result, Reply>);
    static constexpr bool kClassFits = std::is_base_of_v<CWindow, Window> && std::is_base_of_v<Class, Window>;

    static_assert(
        kParametersFit,
        "A message handler takes exactly its message's arguments (see message_crackers.h), or none.");
    static_assert(kResultFits, "A message handler returns void, Then, LRESULT, HBRUSH or Reply.");
    static_assert(kClassFits,
                  "A message handler belongs to the table's own window class or to a base of it.");

    static Reply Handle(CWindow& window, const Message& message) {
        if constexpr (kParametersFit && kResultFits && kClassFits) {
            const auto call = [&](auto&&... arguments) {
                return (static_cast<Window&>(window).*handler)(static_cast<Parameters>(arguments)...);
            };
            const auto callUnpacked = [&] {
                if constexpr (kNoParameters) {
                    return call();
                } else {
                    return std::apply(call, Cracker::Unpack(message.wParam, message.lParam));
                }
            };
            if constexpr (std::is_void_v<Result>) {
                callUnpacked();
                return Cracker::kHandled;
            } else if constexpr (std::is_same_v<Result, Then>) {
                return callUnpacked() == Then::done ? Reply(Cracker::kHandled) : Reply();
            } else if constexpr (std::is_same_v<Result, HBRUSH>) {
                const HBRUSH brush = callUnpacked();
                return brush ? Reply(reinterpret_cast<LRESULT>(brush)) : Reply();
            } else {
                return callUnpacked();
            }
        } else {
            return {};  // already refused above
        }
    }
};

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
