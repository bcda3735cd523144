#include <functional>
#include <thread>

#include "store_fixture.h"

namespace {

constexpr int kTextId = 0xFFFF;

HWND WaitForBox(const wchar_t* caption) {
    for (DWORD start = GetTickCount(); GetTickCount() - start < 10000; Sleep(5)) {
        HWND box = FindWindowW(L"#32770", caption);
        if (box && IsWindowVisible(box)) return box;
    }
    return nullptr;
}

// Shows a box and has another thread do something with it.
int ShowBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT style,
            std::function<void(HWND)> act) {
    std::thread user([&] {
        HWND box = WaitForBox(caption);
        ASSERT_TRUE(box);
        act(box);
    });
    const int result = MessageBoxW(owner, text, caption, style);
    user.join();
    return result;
}

void Press(HWND box, int id) {
    PostMessageW(GetDlgItem(box, id), BM_CLICK, 0, 0);
}

std::wstring ControlText(HWND box, int id) {
    wchar_t text[256] = L"";
    GetDlgItemTextW(box, id, text, 256);
    return text;
}

const Setting english(L"HANDHELD_LCID", L"1033");

}  // namespace

TEST(MessageBoxes, PressedButtonIsTheResult) {
    for (int id : {IDYES, IDNO})
        EXPECT_EQ(ShowBox(nullptr, L"Delete?", L"Lumetta Camera", MB_YESNO | MB_ICONQUESTION,
                          [&](HWND box) {
                              EXPECT_EQ(ControlText(box, kTextId), L"Delete?");
                              EXPECT_EQ(ControlText(box, IDYES), L"Yes");
                              EXPECT_EQ(ControlText(box, IDNO), L"No");
                              EXPECT_FALSE(GetDlgItem(box, IDCANCEL));
                              Press(box, id);
                          }),
                  id);
}

TEST(MessageBoxes, FitsTheScreen) {
    std::wstring longText;
    for (int i = 0; i < 60; ++i) longText += L"Not enough space, can not take a snapshot! ";
    ShowBox(nullptr, longText.c_str(), L"A caption that is much too long for a screen of 240 pixels",
            MB_OKCANCEL, [](HWND box) {
                RECT place;
                GetWindowRect(box, &place);
                EXPECT_LE(place.right - place.left, 224);
                EXPECT_LE(place.bottom - place.top, 320);
                for (int id : {IDOK, IDCANCEL}) {
                    RECT button;
                    GetWindowRect(GetDlgItem(box, id), &button);
                    EXPECT_GT(button.left, place.left);
                    EXPECT_LT(button.right, place.right);
                    EXPECT_LT(button.bottom, place.bottom);
                }
                Press(box, IDOK);
            });
}

TEST(MessageBoxes, OwnerIsDisabledMeanwhile) {
    HWND owner = CreateWindowExW(0, L"STATIC", L"owner", WS_POPUP | WS_VISIBLE, 0, 0, 240, 320, nullptr,
                                 nullptr, nullptr, nullptr);
    EXPECT_EQ(ShowBox(owner, L"x", L"modal", MB_OK | MB_ICONHAND,
                      [&](HWND box) {
                          EXPECT_FALSE(IsWindowEnabled(owner));
                          EXPECT_EQ(GetWindow(box, GW_OWNER), owner);
                          Press(box, IDOK);
                      }),
              IDOK);
    EXPECT_TRUE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}

TEST(MessageBoxes, KeysChoose) {
    struct {
        UINT style;
        WPARAM key;
        int result;
    } const cases[] = {
        {MB_OKCANCEL, VK_ESCAPE, IDCANCEL},
        {MB_OK, VK_ESCAPE, IDOK},
        {MB_OKCANCEL, VK_RETURN, IDOK},
        {MB_OKCANCEL | MB_DEFBUTTON2, VK_RETURN, IDCANCEL},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(ShowBox(nullptr, L"x", L"keys", test.style,
                          [&](HWND box) {
                              GUITHREADINFO info = {};
                              info.cbSize = sizeof info;
                              GetGUIThreadInfo(GetWindowThreadProcessId(box, nullptr), &info);
                              PostMessageW(info.hwndFocus, WM_KEYDOWN, test.key, 1);
                          }),
                  test.result);
    }
}

TEST(MessageBoxes, EscapeNeedsACancelButton) {
    EXPECT_EQ(ShowBox(nullptr, L"x", L"no escape", MB_YESNO,
                      [&](HWND box) {
                          SendMessageW(box, WM_COMMAND, IDCANCEL, 0);
                          EXPECT_TRUE(IsWindow(box));
                          Press(box, IDNO);
                      }),
              IDNO);
}

TEST(MessageBoxes, ButtonsSpeakTheHandheldsLanguage) {
    struct {
        const wchar_t* locale;
        const wchar_t* cancel;
    } const cases[] = {{L"1031", L"Abbrechen"},
                       {L"1042", L"\uCDE8\uC18C"},
                       {L"2052", L"\u53D6\u6D88"},
                       {L"1041", L"Cancel"}};
    for (const auto& test : cases) {
        const Setting locale(L"HANDHELD_LCID", test.locale);
        ShowBox(nullptr, L"x", L"language", MB_OKCANCEL, [&](HWND box) {
            EXPECT_EQ(ControlText(box, IDCANCEL), test.cancel);
            Press(box, IDCANCEL);
        });
    }
}

TEST(MessageBoxes, EmptyTextsAndBadOwners) {
    EXPECT_EQ(ShowBox(nullptr, nullptr, L"", MB_OK, [](HWND box) { Press(box, IDOK); }), IDOK);
    EXPECT_EQ(MessageBoxW(reinterpret_cast<HWND>(0x7FFFFFF0), L"x", L"y", MB_OK), 0);
}
