// One row of a message table, and how it calls its handler; message_map.h shows how tables are written.
#pragma once
#include "framework/message_crackers.h"

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

// A row's `handle`: unpacks the message, calls the handler and turns what it returns into a Reply.
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
