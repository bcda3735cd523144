#include <thread>

#include "shell_fixture.h"

namespace {

constexpr COLORREF kNavy = RGB(0, 0, 128);
constexpr int kButtonX = 226, kButtonY = 13;

RECT ClientOnDesktop(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    return client;
}

}  // namespace

TEST(Screen, Is240By320WithRoomFor268Rows) {
    TestDialog dialog;
    dialog.Fill();
    const RECT place = dialog.Place(), client = ClientOnDesktop(dialog.Window());
    EXPECT_EQ(place.right - place.left, 240);
    EXPECT_EQ(place.bottom - place.top, 320);
    EXPECT_EQ(client.left, place.left);
    EXPECT_EQ(client.right, place.right);
    EXPECT_EQ(client.top, place.top + 26);
    EXPECT_EQ(client.bottom, place.bottom - 26);
}

TEST(Screen, StartsInTheMiddleOfTheDesktop) {
    TestDialog dialog;
    dialog.Fill();
    RECT work;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_EQ(dialog.Place().left, work.left + (work.right - work.left - 240) / 2);
    EXPECT_EQ(dialog.Place().top, work.top + (work.bottom - work.top - 320) / 2);
}

TEST(Screen, KeepsItsSize) {
    TestDialog dialog;
    dialog.Fill();
    SetWindowPos(dialog.Window(), nullptr, 10, 20, 500, 100, SWP_NOZORDER);
    EXPECT_EQ(dialog.Place().left, 10);
    EXPECT_EQ(dialog.Place().right, 250);
    EXPECT_EQ(dialog.Place().bottom, 340);
}

TEST(Screen, DialogsWithoutSizeFlagStayAsTheyAre) {
    TestDialog dialog;
    const RECT before = dialog.Place();
    SHINITDLGINFO info = {SHIDIM_FLAGS, dialog.Window(), SHIDIF_DONEBUTTON};
    EXPECT_TRUE(SHInitDialog(&info));
    const RECT after = dialog.Place();
    EXPECT_TRUE(EqualRect(&before, &after));
    info.hDlg = nullptr;
    EXPECT_FALSE(SHInitDialog(&info));
    EXPECT_FALSE(SHInitDialog(nullptr));
}

TEST(Screen, SecondScreenCoversTheFirstAndMovesWithIt) {
    TestDialog first;
    first.Fill();
    SetWindowPos(first.Window(), nullptr, 33, 44, 0, 0, SWP_NOZORDER | SWP_NOSIZE);
    TestDialog second(first.Window());
    second.Fill();
    RECT below = first.Place(), above = second.Place();
    EXPECT_TRUE(EqualRect(&below, &above));
    SetWindowPos(second.Window(), nullptr, 70, 80, 0, 0, SWP_NOZORDER | SWP_NOSIZE);
    below = first.Place();
    EXPECT_EQ(below.left, 70);
    EXPECT_EQ(below.top, 80);
}

TEST(Screen, CrossCloses) {
    TestDialog dialog;
    dialog.Fill();
    dialog.Tap(kButtonX, kButtonY);
    EXPECT_TRUE(dialog.Got(WM_CLOSE));
    EXPECT_FALSE(dialog.GotCommand(IDOK));
}

TEST(Screen, DoneButtonIsOk) {
    TestDialog dialog;
    dialog.Fill(SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_DONEBUTTON);
    dialog.Tap(kButtonX, kButtonY);
    EXPECT_TRUE(dialog.GotCommand(IDOK));
    EXPECT_FALSE(dialog.Got(WM_CLOSE));
}

// Sliding off the button before lifting the pen takes the tap back.
TEST(Screen, ReleasedElsewhereMeansNothing) {
    TestDialog dialog;
    dialog.Fill();
    const RECT place = dialog.Place();
    SendMessageW(dialog.Window(), WM_NCLBUTTONDOWN, HTCLOSE,
                 MAKELPARAM(place.left + kButtonX, place.top + kButtonY));
    EXPECT_EQ(GetCapture(), dialog.Window());
    SendMessageW(dialog.Window(), WM_LBUTTONUP, 0, MAKELPARAM(100, 100));
    dialog.Pump();
    EXPECT_NE(GetCapture(), dialog.Window());
    EXPECT_FALSE(dialog.Got(WM_CLOSE));
}

TEST(Screen, FrameParts) {
    TestDialog dialog;
    dialog.Fill();
    const RECT place = dialog.Place();
    const auto part = [&](int x, int y) {
        return SendMessageW(dialog.Window(), WM_NCHITTEST, 0, MAKELPARAM(place.left + x, place.top + y));
    };
    EXPECT_EQ(part(5, 5), HTCAPTION);
    EXPECT_EQ(part(235, 5), HTCLOSE);
    EXPECT_EQ(part(5, 26), HTCLIENT);
    EXPECT_EQ(part(5, 293), HTCLIENT);
    EXPECT_EQ(part(5, 294), HTMENU);
}

TEST(Screen, TitleBarShowsTheTitle) {
    TestDialog dialog;
    dialog.Fill();
    const auto whitePixels = [&] {
        int count = 0;
        for (int y = 0; y < 26; ++y)
            for (int x = 0; x < 150; ++x) count += dialog.Pixel(x, y) == RGB(255, 255, 255);
        return count;
    };
    EXPECT_EQ(dialog.Pixel(1, 1), kNavy);
    const int withTitle = whitePixels();
    EXPECT_GT(withTitle, 50);
    SetWindowTextW(dialog.Window(), L"");
    EXPECT_EQ(whitePixels(), 0);
    SetWindowTextW(dialog.Window(), L"Camera");
    EXPECT_EQ(whitePixels(), withTitle);
}

TEST(Screen, DialogsAreWhiteAndInTheShellsFont) {
    TestDialog dialog;
    HWND label = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 20, 20, 60, 20, dialog.Window(), nullptr,
                                 nullptr, nullptr);
    dialog.Fill();
    EXPECT_EQ(dialog.Pixel(5, 26 + 5), RGB(255, 255, 255));
    EXPECT_EQ(dialog.Pixel(40, 26 + 30), RGB(255, 255, 255));
    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)), sizeof font, &font);
    EXPECT_STREQ(font.lfFaceName, L"Tahoma");
    EXPECT_EQ(font.lfHeight, -11);
}

TEST(Screen, OtherShellCalls) {
    TestDialog dialog;
    EXPECT_TRUE(SendMessageW(dialog.Window(), WM_GETFONT, 0, 0) == 0);
    dialog.Fill();
    dialog.Fill(SHIDIF_SIZEDLGFULLSCREEN | SHIDIF_DONEBUTTON);  // again, with another button
    dialog.Tap(kButtonX, kButtonY);
    EXPECT_TRUE(dialog.GotCommand(IDOK));
}

// Two minutes in the background close the camera; its own dialogs and the desktop's other programs do not
// count.
TEST(Foreground, IsTheProgramsFirstScreen) {
    EXPECT_NE(GetForegroundWindow(), GetDesktopWindow());
    TestDialog first;
    first.Fill();
    EXPECT_EQ(GetForegroundWindow(), first.Window());
    TestDialog second(first.Window());
    second.Fill();
    EXPECT_EQ(GetForegroundWindow(), first.Window());
    HWND other = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr,
                                 nullptr, nullptr);
    SetForegroundWindow(other);
    EXPECT_EQ(GetForegroundWindow(), first.Window());
    SetEnvironmentVariableW(L"HANDHELD_FOREGROUND", L"desktop");
    EXPECT_EQ(GetForegroundWindow(), other);
    SetEnvironmentVariableW(L"HANDHELD_FOREGROUND", L"other");
    EXPECT_NE(GetForegroundWindow(), first.Window());
    EXPECT_NE(GetForegroundWindow(), other);
    SetEnvironmentVariableW(L"HANDHELD_FOREGROUND", nullptr);
    DestroyWindow(other);
}

TEST(Screen, MessageBoxesAppearOnIt) {
    TestDialog dialog;
    dialog.Fill();
    SetWindowPos(dialog.Window(), nullptr, 300, 200, 0, 0, SWP_NOZORDER | SWP_NOSIZE);
    const RECT place = dialog.Place();
    RECT box = {};
    std::thread user([&] {
        HWND window = nullptr;
        for (DWORD start = GetTickCount(); !window && GetTickCount() - start < 5000; Sleep(5)) {
            window = FindWindowW(L"#32770", L"on screen");
            if (window && !IsWindowVisible(window)) window = nullptr;
        }
        GetWindowRect(window, &box);
        PostMessageW(GetDlgItem(window, IDOK), BM_CLICK, 0, 0);
    });
    MessageBoxW(nullptr, L"A text long enough to be broken into lines by the box", L"on screen", MB_ICONHAND);
    user.join();
    EXPECT_GE(box.left, place.left + 8);
    EXPECT_LE(box.right, place.right - 8);
    EXPECT_NEAR(box.left - place.left, place.right - box.right, 1);
    EXPECT_NEAR(box.top - place.top, place.bottom - box.bottom, 1);
}

TEST(Screen, GoesWithoutTrace) {
    {
        TestDialog warmUp;
        warmUp.Fill();
    }
    const DWORD gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const DWORD user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    for (int i = 0; i < 30; ++i) {
        TestDialog dialog;
        dialog.Fill();
        EXPECT_TRUE(dialog.AddBar(100));
    }
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), gdi + 2);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), user + 2);
}
