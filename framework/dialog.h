// CDialog: a modal dialog made from a template resource, with the framework's own modal loop.
#pragma once
#include "framework/dialog_base.h"

class CDialog : public CDialogBase {
  public:
    enum class Placement {
        screen,            // fills the screen between title bar and menu bar; the title bar closes it
        screenWithButton,  // the same, with an OK button in the title bar
        centred,           // the template's size, in the middle of the owner
    };

    explicit CDialog(UINT templateId, Placement placement = Placement::centred)
        : CDialogBase(templateId), m_placement(placement) {}

    // Shows the dialog and handles messages until it ends; the owner's top-level window is disabled
    // meanwhile. Result: what EndDialog was given; IDCANCEL when the window was destroyed, or the program is
    // to end (WM_QUIT stays posted for outer loops); -1 when there is no such template, or this dialog is
    // being shown already.
    int DoModal(HWND owner);

    // Ends DoModal with this result as soon as the current handler has returned; the window lives until then.
    void EndDialog(int result);

    Reply OnMessage(const Message& message) override;

    // The keys that move the focus or press the default button.
    bool PreTranslateMessage(MSG& message) override;

  protected:
    // The base also places the dialog.
    bool OnInitDialog() override;

    virtual void OnOK();      // IDOK: takes the controls into the members; when that works, ends with IDOK
    virtual void OnCancel();  // IDCANCEL: ends with IDCANCEL

    // WM_CLOSE: destroys the window at once, without asking OnCancel; DoModal ends with IDCANCEL.
    virtual void OnClose();

    void OnWindowGone() override;

  private:
    static INT_PTR CALLBACK DialogProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    bool CreateFromTemplate(HWND owner);
    void RunModalLoop();
    void EnableOwner();

    const Placement m_placement;
    HWND m_disabledOwner = nullptr;  // to be enabled again
    int m_result = -1;
    bool m_ended = false;
};
