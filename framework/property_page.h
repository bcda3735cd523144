// CPropertyPage: one page of a property sheet; message table, initialisation and exchange as in every dialog.
// A page is created when it is first shown; one that was never shown hears nothing of OK or Cancel.
#pragma once
#include "framework/dialog_base.h"

#include <string>

class CPropertyPage : public CDialogBase {
  public:
    // `title`: the text of the page's tab.
    CPropertyPage(UINT templateId, std::wstring title) : CDialogBase(templateId), m_title(std::move(title)) {}

    Reply OnMessage(const Message& message) override;

  protected:
    // The page comes to the front.
    virtual void OnSetActive() {}

    // The page is about to leave the front, by another tab or by OK.  False: it stays.
    // The base takes the controls into the members, and stays when that does not work.
    virtual bool OnKillActive() { return UpdateMembers(); }

    // The sheet is closed with OK.  False: the sheet stays open with this page in front.
    virtual bool OnOK() { return true; }

    // The sheet is closed another way.
    virtual void OnCancel() {}

  private:
    friend class CPropertySheet;
    static INT_PTR CALLBACK PageProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    PROPSHEETPAGEW_V1 Describe();
    LRESULT OnKillActiveNotice();
    LRESULT OnApplyNotice();

    const std::wstring m_title;
};
