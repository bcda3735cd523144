#include "framework/data_exchange.h"

namespace {

HWND Control(HWND dialog, UINT control) {
    return GetDlgItem(dialog, static_cast<int>(control));
}

bool IsRadioButton(HWND control) {
    return SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON;
}

// The next control of the same group, or null.
HWND NextInGroup(HWND control) {
    const HWND next = GetWindow(control, GW_HWNDNEXT);
    return next && !(GetWindowLongW(next, GWL_STYLE) & WS_GROUP) ? next : nullptr;
}

}  // namespace

bool ExchangeText(HWND dialog, UINT control, std::wstring& text, ExchangeDirection direction) {
    const HWND window = Control(dialog, control);
    if (direction == ExchangeDirection::toControls) {
        SetWindowTextW(window, text.c_str());
        return true;
    }
    std::wstring taken(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    taken.resize(
        static_cast<std::size_t>(GetWindowTextW(window, taken.data(), static_cast<int>(taken.size()))));
    text = std::move(taken);
    return true;
}

bool ExchangeNumber(HWND dialog, UINT control, int& number, ExchangeDirection direction) {
    const int id = static_cast<int>(control);
    if (direction == ExchangeDirection::toControls) {
        SetDlgItemInt(dialog, id, static_cast<UINT>(number), TRUE);
        return true;
    }
    BOOL readable = FALSE;
    const int taken = static_cast<int>(GetDlgItemInt(dialog, id, &readable, TRUE));
    if (readable) number = taken;
    return readable;
}

bool ExchangeRadio(HWND dialog, UINT firstControl, int& position, ExchangeDirection direction) {
    int current = 0;
    for (HWND button = Control(dialog, firstControl); button; button = NextInGroup(button)) {
        if (!IsRadioButton(button)) continue;
        if (direction == ExchangeDirection::toControls) {
            SendMessageW(button, BM_SETCHECK, current == position ? BST_CHECKED : BST_UNCHECKED, 0);
        } else if (SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED) {
            position = current;
            return true;
        }
        ++current;
    }
    return true;
}

bool ExchangeCheck(HWND dialog, UINT control, bool& checked, ExchangeDirection direction) {
    const HWND button = Control(dialog, control);
    if (direction == ExchangeDirection::toControls) {
        SendMessageW(button, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
    } else {
        checked = SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
    return true;
}
