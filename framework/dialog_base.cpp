#include "framework/dialog_base.h"

namespace {

// Messages whose result a dialog procedure returns itself; all others leave it in the dialog's result word.
bool ReturnsResult(UINT message) {
    return (WM_CTLCOLORMSGBOX <= message && message <= WM_CTLCOLORSTATIC) || message == WM_COMPAREITEM ||
           message == WM_VKEYTOITEM || message == WM_CHARTOITEM;
}

}  // namespace

bool CDialogBase::OnInitDialog() {
    UpdateControls();
    return true;
}

INT_PTR CDialogBase::Begin(CDialogBase& dialog, HWND hwnd) {
    dialog.Attach(hwnd);
    return dialog.OnInitDialog();
}

INT_PTR CDialogBase::Continue(HWND hwnd, const Message& message) {
    const Reply reply = Route(hwnd, message);
    if (!reply) return FALSE;
    if (ReturnsResult(message.message)) return *reply;
    // CE has the 32-bit call only, so a dialog's handlers give results from 0 up to 31 bits.
    SetWindowLongW(hwnd, DWLP_MSGRESULT, static_cast<LONG>(*reply));
    return TRUE;
}
