// CDialogBase: what modal dialogs and property pages share: template, initialisation, data exchange.
#pragma once
#include "framework/data_exchange.h"
#include "framework/window.h"

class CDialogBase : public CWindow {
  public:
    // Moves all members to the controls, or back.  False when a control's content could not be taken.
    bool UpdateControls() { return Exchange(ExchangeDirection::toControls); }
    bool UpdateMembers() { return Exchange(ExchangeDirection::toMembers); }

  protected:
    // `templateId`: dialog resource of the program's own module.
    explicit CDialogBase(UINT templateId) : m_templateId(templateId) {}
    UINT TemplateId() const { return m_templateId; }

    HWND Control(UINT id) const { return GetDlgItem(Hwnd(), static_cast<int>(id)); }

    // Controls exist, nothing is shown yet.  The base shows the members in the controls: call it first.
    // True: the system gives the focus to the first control; false: the focus has been set here.
    virtual bool OnInitDialog();

    // The exchange table; see data_exchange.h.
    virtual bool Exchange(ExchangeDirection) { return true; }

    // The two halves of a dialog procedure: WM_INITDIALOG, and every other message.
    static INT_PTR Begin(CDialogBase& dialog, HWND hwnd);
    static INT_PTR Continue(HWND hwnd, const Message& message);

  private:
    const UINT m_templateId;
};
