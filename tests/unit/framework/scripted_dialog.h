// A modal dialog that a test drives: once the dialog is up, its steps run one after the other, each from a
// message of its own, so that everything a step has posted is handled before the next one.
#pragma once
#include "framework/dialog.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

class CScriptedDialog : public CDialog {
  public:
    using Step = std::function<void()>;

    explicit CScriptedDialog(UINT templateId, Placement placement = Placement::centred)
        : CDialog(templateId, placement) {}

    std::vector<Step> steps;
    std::string log;
    std::function<bool(MSG&)> preTranslate;  // asked before the dialog's own

    int DoModal(HWND owner) {
        m_next = 0;
        return CDialog::DoModal(owner);
    }

    using CDialog::OnClose;

    Reply OnMessage(const Message& message) override {
        using On = HandlersOf<CScriptedDialog>;
        static constexpr MessageRow rows[] = {
            On::message<kMsgNextStep, &CScriptedDialog::OnNextStep>,
            On::message<WM_TIMER, &CScriptedDialog::OnTimer>,
            On::message<WM_DESTROY, &CScriptedDialog::OnDestroy>,
        };
        return Dispatch<rows, CDialog>(*this, message);
    }

    bool PreTranslateMessage(MSG& message) override {
        if (preTranslate && preTranslate(message)) return true;
        return CDialog::PreTranslateMessage(message);
    }

  protected:
    bool OnInitDialog() override {
        CDialog::OnInitDialog();
        log += "init;";
        SetTimer(Hwnd(), kLimitTimer, 10'000, nullptr);
        PostMessageW(Hwnd(), kMsgNextStep, 0, 0);
        return true;
    }
    void OnCancel() override {
        log += "cancel;";
        CDialog::OnCancel();
    }

  private:
    static constexpr UINT kMsgNextStep = WM_USER + 100;
    static constexpr UINT_PTR kLimitTimer = 99;

    void OnNextStep() {
        if (m_next == steps.size()) return;
        const Step step = steps[m_next++];
        step();
        if (Hwnd()) PostMessageW(Hwnd(), kMsgNextStep, 0, 0);
    }
    Then OnTimer(UINT_PTR id) {
        if (id != kLimitTimer) return Then::defaultHandling;
        ADD_FAILURE() << "the dialog never ended";
        EndDialog(-99);
        return Then::done;
    }
    void OnDestroy() { log += "destroy;"; }

    std::size_t m_next = 0;
};
