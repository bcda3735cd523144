// What messages carry: one cracker per message unpacks WPARAM and LPARAM into its handler's typed arguments.
// A message that is missing gets its line here; private messages (WM_USER and above) need none.
#pragma once
#include "platform/ce.h"

#include <tuple>
#include <type_traits>

// Arguments: the handler's parameters.  kHandled: the result of a handler that returns nothing.
template <class... Parameters>
struct Carries {
    using Arguments = std::tuple<Parameters...>;
    static constexpr LRESULT kHandled = 0;
};

struct CarriesNothing : Carries<> {
    static Arguments Unpack(WPARAM, LPARAM) { return {}; }
};
struct CarriesPoint : Carries<POINT> {  // client coordinates; they may be negative
    static Arguments Unpack(WPARAM, LPARAM l) {
        return POINT{static_cast<short>(LOWORD(l)), static_cast<short>(HIWORD(l))};
    }
};
struct CarriesKey : Carries<UINT> {  // virtual key, or character
    static Arguments Unpack(WPARAM w, LPARAM) { return static_cast<UINT>(w); }
};
struct CarriesWindow : Carries<HWND> {  // the other window, or null
    static Arguments Unpack(WPARAM w, LPARAM) { return reinterpret_cast<HWND>(w); }
};
struct CarriesColors : Carries<HDC, HWND> {  // device context and control to be coloured
    static Arguments Unpack(WPARAM w, LPARAM l) {
        return {reinterpret_cast<HDC>(w), reinterpret_cast<HWND>(l)};
    }
};
struct CarriesParameters : Carries<WPARAM, LPARAM> {
    static Arguments Unpack(WPARAM w, LPARAM l) { return {w, l}; }
};
template <class Record>
struct CarriesItem : Carries<UINT, Record&> {  // control and its item
    static constexpr LRESULT kHandled = TRUE;
    static typename CarriesItem::Arguments Unpack(WPARAM w, LPARAM l) {
        return {static_cast<UINT>(w), *reinterpret_cast<Record*>(l)};
    }
};
template <class Record>
struct CarriesRecord : Carries<Record&> {
    static typename CarriesRecord::Arguments Unpack(WPARAM, LPARAM l) {
        return *reinterpret_cast<Record*>(l);
    }
};

struct NoCracker {};

template <UINT message>
struct Cracker : std::conditional_t<message >= WM_USER, CarriesParameters, NoCracker> {};

// clang-format off
template <> struct Cracker<WM_CREATE> : CarriesRecord<const CREATESTRUCTW> {};  // LRESULT -1 refuses
template <> struct Cracker<WM_DESTROY> : CarriesNothing {};
template <> struct Cracker<WM_CLOSE> : CarriesNothing {};
template <> struct Cracker<WM_PAINT> : CarriesNothing {};
template <> struct Cracker<WM_MOVE> : CarriesPoint {};
template <> struct Cracker<WM_LBUTTONDOWN> : CarriesPoint {};
template <> struct Cracker<WM_LBUTTONUP> : CarriesPoint {};
template <> struct Cracker<WM_LBUTTONDBLCLK> : CarriesPoint {};
template <> struct Cracker<WM_MOUSEMOVE> : CarriesPoint {};
template <> struct Cracker<WM_KEYDOWN> : CarriesKey {};
template <> struct Cracker<WM_KEYUP> : CarriesKey {};
template <> struct Cracker<WM_CHAR> : CarriesKey {};
template <> struct Cracker<WM_SETFOCUS> : CarriesWindow {};
template <> struct Cracker<WM_KILLFOCUS> : CarriesWindow {};
template <> struct Cracker<WM_DRAWITEM> : CarriesItem<const DRAWITEMSTRUCT> {};
template <> struct Cracker<WM_MEASUREITEM> : CarriesItem<MEASUREITEMSTRUCT> {};
template <> struct Cracker<WM_CTLCOLORMSGBOX> : CarriesColors {};
template <> struct Cracker<WM_CTLCOLOREDIT> : CarriesColors {};
template <> struct Cracker<WM_CTLCOLORLISTBOX> : CarriesColors {};
template <> struct Cracker<WM_CTLCOLORBTN> : CarriesColors {};
template <> struct Cracker<WM_CTLCOLORDLG> : CarriesColors {};
template <> struct Cracker<WM_CTLCOLORSCROLLBAR> : CarriesColors {};
template <> struct Cracker<WM_CTLCOLORSTATIC> : CarriesColors {};
// clang-format on

template <>
struct Cracker<WM_TIMER> : Carries<UINT_PTR> {  // timer id
    static Arguments Unpack(WPARAM w, LPARAM) { return w; }
};
template <>
struct Cracker<WM_ERASEBKGND> : Carries<HDC> {
    static constexpr LRESULT kHandled = TRUE;  // "erased": nothing else paints the background
    static Arguments Unpack(WPARAM w, LPARAM) { return reinterpret_cast<HDC>(w); }
};
template <>
struct Cracker<WM_HELP> : Carries<const HELPINFO*> {  // null when the shell asks without a place
    static constexpr LRESULT kHandled = TRUE;
    static Arguments Unpack(WPARAM, LPARAM l) { return reinterpret_cast<const HELPINFO*>(l); }
};
template <>
struct Cracker<WM_SIZE> : Carries<UINT, SIZE> {  // kind of change, client size
    static Arguments Unpack(WPARAM w, LPARAM l) { return {static_cast<UINT>(w), SIZE{LOWORD(l), HIWORD(l)}}; }
};
template <>
struct Cracker<WM_ACTIVATE> : Carries<UINT, HWND> {  // WA_..., the other window or null
    static Arguments Unpack(WPARAM w, LPARAM l) { return {LOWORD(w), reinterpret_cast<HWND>(l)}; }
};
template <>
struct Cracker<WM_HOTKEY> : Carries<int, UINT, UINT> {  // hot key id, modifiers, virtual key
    static Arguments Unpack(WPARAM w, LPARAM l) { return {static_cast<int>(w), LOWORD(l), HIWORD(l)}; }
};

// The record behind a WM_NOTIFY code; those not listed carry the plain header.
// clang-format off
template <UINT code> struct NotifyRecord { using Type = NMHDR; };
template <> struct NotifyRecord<LVN_ITEMCHANGING> { using Type = NMLISTVIEW; };
template <> struct NotifyRecord<LVN_ITEMCHANGED> { using Type = NMLISTVIEW; };
template <> struct NotifyRecord<TVN_SELCHANGINGW> { using Type = NMTREEVIEWW; };
template <> struct NotifyRecord<TVN_SELCHANGEDW> { using Type = NMTREEVIEWW; };
template <> struct NotifyRecord<TVN_ITEMEXPANDINGW> { using Type = NMTREEVIEWW; };
template <> struct NotifyRecord<TVN_ITEMEXPANDEDW> { using Type = NMTREEVIEWW; };
template <> struct NotifyRecord<TVN_BEGINLABELEDITW> { using Type = NMTVDISPINFOW; };
template <> struct NotifyRecord<TVN_ENDLABELEDITW> { using Type = NMTVDISPINFOW; };
template <> struct NotifyRecord<NM_CUSTOMDRAW> { using Type = NMCUSTOMDRAW; };
// clang-format on

template <UINT code>
using NotifyCracker = CarriesRecord<const typename NotifyRecord<code>::Type>;
