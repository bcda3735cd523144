#include "framework/dialog.h"

#include "framework/dialog_placement.h"
#include "framework/message_loop.h"
#include "framework/program_module.h"

namespace {

HWND TopLevelOf(HWND hwnd) {
    while (hwnd && (GetWindowLongW(hwnd, GWL_STYLE) & WS_CHILD)) hwnd = GetParent(hwnd);
    return hwnd;
}

}  // namespace

int CDialog::DoModal(HWND owner) {
    if (Hwnd()) return -1;
    m_result = -1;
    m_ended = false;
    owner = TopLevelOf(owner);
    // An owner that is disabled already belongs to an outer dialog, which will enable it.
    m_disabledOwner = owner && IsWindowEnabled(owner) ? owner : nullptr;
    if (m_disabledOwner) EnableWindow(m_disabledOwner, FALSE);
    if (CreateFromTemplate(owner)) RunModalLoop();
    EnableOwner();
    if (Hwnd()) DestroyWindow(Hwnd());
    return m_result;
}

bool CDialog::CreateFromTemplate(HWND owner) {
    const auto* dialogTemplate = static_cast<const DLGTEMPLATE*>(ResourceBytes(TemplateId(), RT_DIALOG));
    if (!dialogTemplate) return false;
    CreateDialogIndirectParamW(ProgramModule(), dialogTemplate, owner, &CDialog::DialogProcedure,
                               reinterpret_cast<LPARAM>(this));
    return Hwnd() != nullptr;  // null also when the dialog's own initialisation closed it
}

void CDialog::RunModalLoop() {
    if (!m_ended && !IsWindowVisible(Hwnd())) ShowWindow(Hwnd(), SW_SHOW);
    while (Hwnd() && !m_ended) {
        MSG message;
        if (!HandleNextMessage(message)) {
            PostQuitMessage(static_cast<int>(message.wParam));  // for the loops further out
            return;
        }
    }
}

void CDialog::EnableOwner() {
    if (!m_disabledOwner) return;
    // While the dialog still exists: otherwise the system would activate another program's window.
    EnableWindow(m_disabledOwner, TRUE);
    if (GetActiveWindow() == Hwnd() || !Hwnd()) SetActiveWindow(m_disabledOwner);
    m_disabledOwner = nullptr;
}

void CDialog::EndDialog(int result) {
    m_result = result;
    m_ended = true;
    WakeMessageLoop();
}

Reply CDialog::OnMessage(const Message& message) {
    using On = HandlersOf<CDialog>;
    static constexpr MessageRow rows[] = {
        On::command<IDOK, &CDialog::OnOK>,
        On::command<IDCANCEL, &CDialog::OnCancel>,
        On::message<WM_CLOSE, &CDialog::OnClose>,
    };
    return Dispatch<rows, CDialogBase>(*this, message);
}

bool CDialog::PreTranslateMessage(MSG& message) {
    const bool isKey = WM_KEYFIRST <= message.message && message.message <= WM_KEYLAST;
    return isKey && IsDialogMessageW(Hwnd(), &message);
}

bool CDialog::OnInitDialog() {
    switch (m_placement) {
        case Placement::screen:
            FillScreen(Hwnd(), SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_SIPDOWN);
            break;
        case Placement::screenWithButton:
            FillScreen(Hwnd(), SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_SIPDOWN | SHIDIF_DONEBUTTON);
            break;
        case Placement::centred:
            CentreInOwner(Hwnd());
            break;
    }
    return CDialogBase::OnInitDialog();
}

void CDialog::OnOK() {
    if (UpdateMembers()) EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

void CDialog::OnClose() {
    EnableOwner();
    DestroyWindow(Hwnd());
}

void CDialog::OnWindowGone() {
    WakeMessageLoop();
}

INT_PTR CALLBACK CDialog::DialogProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        CDialog& dialog = *reinterpret_cast<CDialog*>(lParam);
        dialog.m_result = IDCANCEL;  // until something else ends it
        return Begin(dialog, hwnd);
    }
    return Continue(hwnd, {message, wParam, lParam});
}
