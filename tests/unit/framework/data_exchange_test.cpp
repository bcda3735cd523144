// Members and controls: what each kind of row moves, and what it refuses.
#include "framework/data_exchange.h"

#include "scripted_dialog.h"
#include "test_resources.h"

#include <gtest/gtest.h>

namespace {

class CFieldsDialog : public CScriptedDialog {
  public:
    CFieldsDialog() : CScriptedDialog(IDD_FIELDS) {}

    std::wstring m_text = L"snap";
    int m_number = 12;
    int m_size = 1;
    bool m_sound = true;

    std::wstring TextOf(UINT id) const {
        wchar_t text[64] = L"";
        GetDlgItemTextW(Hwnd(), static_cast<int>(id), text, 64);
        return text;
    }
    void SetTextOf(UINT id, const wchar_t* text) { SetDlgItemTextW(Hwnd(), static_cast<int>(id), text); }
    bool Checked(UINT id) const { return SendMessageW(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    void Click(UINT id) { SendMessageW(Control(id), BM_CLICK, 0, 0); }
    bool HasFocus(UINT id) const { return GetFocus() == Control(id); }

  protected:
    bool Exchange(ExchangeDirection direction) override {
        using Data = MembersOf<CFieldsDialog>;
        static constexpr ExchangeRow rows[] = {
            Data::text<IDC_TEXT, &CFieldsDialog::m_text>,
            Data::number<IDC_NUMBER, &CFieldsDialog::m_number>,
            Data::radio<IDC_SIZE_FIRST, &CFieldsDialog::m_size>,
            Data::check<IDC_CHECK, &CFieldsDialog::m_sound>,
        };
        return ExchangeAll<rows>(*this, direction);
    }
};

class DataExchange : public ::testing::Test {
  protected:
    // Runs `step` inside the open dialog and ends it.
    int Run(CScriptedDialog::Step step, UINT end = IDCANCEL) {
        dialog.steps = {std::move(step), [this, end] { dialog.Click(end); },
                        [this] { dialog.EndDialog(IDCANCEL); }};
        return dialog.DoModal(nullptr);
    }

    CFieldsDialog dialog;
};

TEST_F(DataExchange, MembersAreShownAtTheBeginning) {
    dialog.m_number = -12;
    Run([&] {
        EXPECT_EQ(L"snap", dialog.TextOf(IDC_TEXT));
        EXPECT_EQ(L"-12", dialog.TextOf(IDC_NUMBER));
        EXPECT_FALSE(dialog.Checked(IDC_SIZE_FIRST));
        EXPECT_TRUE(dialog.Checked(IDC_SIZE_SECOND));
        EXPECT_FALSE(dialog.Checked(IDC_SIZE_THIRD));
        EXPECT_FALSE(dialog.Checked(IDC_OTHER_GROUP));
        EXPECT_TRUE(dialog.Checked(IDC_CHECK));
    });
}

TEST_F(DataExchange, OkTakesTheControls) {
    EXPECT_EQ(IDOK, Run(
                        [&] {
                            dialog.SetTextOf(IDC_TEXT, L"\ud55c\uad6d trip");
                            dialog.SetTextOf(IDC_NUMBER, L"-2147483648");
                            dialog.Click(IDC_SIZE_THIRD);
                            dialog.Click(IDC_CHECK);
                        },
                        IDOK));
    EXPECT_EQ(L"\ud55c\uad6d trip", dialog.m_text);
    EXPECT_EQ(-2147483647 - 1, dialog.m_number);
    EXPECT_EQ(2, dialog.m_size);
    EXPECT_FALSE(dialog.m_sound);
}

TEST_F(DataExchange, CancelLeavesTheMembers) {
    EXPECT_EQ(IDCANCEL, Run([&] {
                  dialog.SetTextOf(IDC_TEXT, L"trip");
                  dialog.Click(IDC_SIZE_FIRST);
              }));
    EXPECT_EQ(L"snap", dialog.m_text);
    EXPECT_EQ(1, dialog.m_size);
}

TEST_F(DataExchange, UnreadableNumberKeepsTheDialogOpen) {
    for (const wchar_t* typed : {L"", L"x", L"-", L"99999999999"}) {
        dialog.m_number = 12;
        EXPECT_EQ(IDOK, Run(
                            [&] {
                                dialog.SetTextOf(IDC_NUMBER, typed);
                                dialog.Click(IDOK);
                                EXPECT_EQ(12, dialog.m_number) << typed;
                                EXPECT_TRUE(dialog.HasFocus(IDC_NUMBER));
                                dialog.SetTextOf(IDC_NUMBER, L"13");
                            },
                            IDOK));
        EXPECT_EQ(13, dialog.m_number);
    }
}

TEST_F(DataExchange, NumberEndsAtTheFirstOtherCharacter) {
    EXPECT_EQ(IDOK, Run([&] { dialog.SetTextOf(IDC_NUMBER, L" 34x5"); }, IDOK));
    EXPECT_EQ(34, dialog.m_number);
}

TEST_F(DataExchange, PositionOutsideTheGroupChecksNothingAndStays) {
    for (const int position : {9, 3, -1}) {
        dialog.m_size = position;
        EXPECT_EQ(IDOK, Run(
                            [&] {
                                EXPECT_FALSE(dialog.Checked(IDC_SIZE_FIRST));
                                EXPECT_FALSE(dialog.Checked(IDC_SIZE_SECOND));
                                EXPECT_FALSE(dialog.Checked(IDC_SIZE_THIRD));
                            },
                            IDOK));
        EXPECT_EQ(position, dialog.m_size);
    }
}

TEST_F(DataExchange, LongTextIsTakenWhole) {
    const std::wstring longText(5000, L'x');
    Run([&] { dialog.SetTextOf(IDC_TEXT, longText.c_str()); }, IDOK);
    EXPECT_EQ(longText, dialog.m_text);
}

}  // namespace
