// The About dialog: what it shows, what the card hears, and help.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <cwchar>

#include "desktop/camera_process.h"
#include "desktop/list_view.h"
#include "desktop/program_bitmap.h"
#include "desktop/screen_picture.h"

namespace {

using Lines = std::vector<std::string>;

constexpr UINT kAbout = 32829;
constexpr int kTitle = 1074, kVersions = 1075, kTime = 1076, kVersion = 1077;
constexpr char kStop[] = "control 0x80000017 in 0 out 0";
constexpr char kGetVersion[] = "control 0x80000023 in 0 out 0";
constexpr char kPreview[] = "control 0x8000000F in 6 out 0 preview mode 6";

// A camera with its About dialog open.
class OpenAbout {
  public:
    explicit OpenAbout(const CameraOptions& options = {}) : camera(options) {
        EXPECT_NE(camera.Screen(), nullptr);
        EXPECT_TRUE(camera.WaitForFrames(3));
        before = camera.Calls().size();
        camera.Command(kAbout);
        EXPECT_TRUE(WaitFor([&] { return (dialog = camera.Dialog()) != nullptr; }));
        list = GetDlgItem(dialog, kVersions);
    }
    std::wstring Label(int id) const {
        wchar_t text[128] = {};
        SendMessageW(GetDlgItem(dialog, id), WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
        return text;
    }
    int ColumnWidth(int column) const {
        return static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, column, 0));
    }
    bool Close() {
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        return WaitFor([&] { return camera.Dialog() == nullptr; });
    }

    CameraProcess camera;
    HWND dialog = nullptr, list = nullptr;
    size_t before = 0;
};

TEST(About, ShowsProductAndVersions) {
    OpenAbout about;
    wchar_t title[32] = {};
    GetWindowTextW(about.dialog, title, 32);
    EXPECT_STREQ(title, L"About");
    EXPECT_EQ(about.Label(kTitle), L"Lumetta Camera");
    EXPECT_EQ(about.Label(kVersion), L"V1.00.01");
    EXPECT_EQ(ListHeading(about.list, 0), L"Component");
    EXPECT_EQ(ListHeading(about.list, 1), L"Version");
    ASSERT_EQ(SendMessageW(about.list, LVM_GETITEMCOUNT, 0, 0), 4);
    EXPECT_EQ(ListCell(about.list, 0, 0), L"Camera program");
    EXPECT_EQ(ListCell(about.list, 0, 1), L"1.0.0");
    EXPECT_EQ(ListCell(about.list, 1, 0), L"Picture decoder");
    EXPECT_EQ(ListCell(about.list, 1, 1), L"0.2.1");
    EXPECT_EQ(ListCell(about.list, 2, 0), L"Camera driver");
    EXPECT_EQ(ListCell(about.list, 3, 0), L"Camera firmware");
}

TEST(About, DriverAndFirmwareShowOneVersion) {
    OpenAbout about;
    EXPECT_EQ(ListCell(about.list, 2, 1), L"1.2.0");
    EXPECT_EQ(ListCell(about.list, 3, 1), L"1.2.0");
}

TEST(About, ColumnsShareTheListTwoToOne) {
    OpenAbout about;
    RECT client;
    GetClientRect(about.list, &client);
    EXPECT_EQ(about.ColumnWidth(0), client.right / 3 * 2);
    EXPECT_EQ(about.ColumnWidth(1), client.right / 3);
    EXPECT_EQ(GetWindowLongW(about.list, GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL), 0);
}

TEST(About, FillsTheScreen) {
    OpenAbout about;
    RECT screen, dialog;
    GetWindowRect(about.camera.Screen(), &screen);
    GetWindowRect(about.dialog, &dialog);
    EXPECT_TRUE(EqualRect(&screen, &dialog));
}

TEST(About, TheTimeIsUtc) {
    TIME_ZONE_INFORMATION zone = {};
    GetTimeZoneInformation(&zone);
    ASSERT_NE(zone.Bias, 0) << "only another zone than UTC can tell: run it by in_wine.py";
    OpenAbout about;
    SYSTEMTIME now;
    GetSystemTime(&now);
    const std::wstring text = about.Label(kTime);
    wchar_t weekday[8] = {}, month[8] = {};
    unsigned day = 0, hour = 0, minute = 0, second = 0, year = 0;
    ASSERT_EQ(std::swscanf(text.c_str(), L"    %3ls %3ls %2u %2u:%2u:%2u %4u", weekday, month, &day, &hour,
                           &minute, &second, &year),
              7)
        << std::string(text.begin(), text.end());
    ASSERT_EQ(text.size(), 28u);
    const std::wstring months = L"JanFebMarAprMayJunJulAugSepOctNovDec", weekdays = L"SunMonTueWedThuFriSat";
    SYSTEMTIME shown = {};
    shown.wYear = static_cast<WORD>(year);
    shown.wMonth = static_cast<WORD>(months.find(month) / 3 + 1);
    shown.wDay = static_cast<WORD>(day);
    shown.wHour = static_cast<WORD>(hour);
    shown.wMinute = static_cast<WORD>(minute);
    shown.wSecond = static_cast<WORD>(second);
    FILETIME shownMoment, moment;
    ASSERT_TRUE(SystemTimeToFileTime(&shown, &shownMoment));
    FileTimeToSystemTime(&shownMoment, &shown);
    EXPECT_EQ(weekdays.substr(shown.wDayOfWeek * 3u, 3), weekday);
    SystemTimeToFileTime(&now, &moment);
    const auto ticks = [](const FILETIME& time) {
        return static_cast<int64_t>(uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
    };
    EXPECT_NEAR(static_cast<double>(ticks(moment) - ticks(shownMoment)) / 1e7, 0, 15);
    Sleep(1100);
    EXPECT_EQ(about.Label(kTime), text);
}

TEST(About, StopsTheStreamAndStartsItAgain) {
    OpenAbout about;
    EXPECT_EQ(about.camera.CallsSince(about.before, 2), (Lines{kStop, kGetVersion}));
    const size_t frames = about.camera.Frames();
    Sleep(500);
    EXPECT_EQ(about.camera.Frames(), frames);
    ASSERT_TRUE(about.Close());
    EXPECT_EQ(about.camera.CallsSince(about.before, 3), (Lines{kStop, kGetVersion, kPreview}));
    EXPECT_TRUE(about.camera.WaitForFrames(3));
}

TEST(About, EscapeClosesIt) {
    OpenAbout about;
    PostMessageW(about.list, WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_TRUE(WaitFor([&] { return about.camera.Dialog() == nullptr; }));
    EXPECT_TRUE(about.camera.WaitForFrames(3));
}

TEST(About, WithoutAnAnswerTheVersionsAreEmpty) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    camera.SetCard("unplugged");
    camera.Command(kAbout);
    HWND dialog = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (dialog = camera.Dialog()) != nullptr; }));
    const HWND list = GetDlgItem(dialog, kVersions);
    EXPECT_EQ(ListCell(list, 1, 1), L"0.2.1");
    EXPECT_EQ(ListCell(list, 2, 1), L"");
    EXPECT_EQ(ListCell(list, 3, 1), L"");
    camera.SetCard("");
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(camera.WaitForFrames(3));
}

// Shift+F1 is the request of a PC keyboard.  Dialog and screen start a viewer each; the second to come finds the
// first and ends.  Were the first closed before that, the second would stay.
TEST(About, TheHelpRequestStartsTheHelpViewer) {
    OpenAbout about;
    ASSERT_EQ(FindWindowW(L"HandheldHelpViewer", nullptr), nullptr);
    SetForegroundWindow(about.dialog);
    for (const auto& [key, flags] : {std::pair<BYTE, DWORD>{VK_SHIFT, 0},
                                     {VK_F1, 0},
                                     {VK_F1, KEYEVENTF_KEYUP},
                                     {VK_SHIFT, KEYEVENTF_KEYUP}})
        keybd_event(key, 0, flags, 0);
    const ProcessFamily& family = about.camera.Family();
    ASSERT_TRUE(WaitFor([&] { return family.Started() == 3 && family.Running() == 2; }));
    HWND help = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (help = FindWindowW(L"HandheldHelpViewer", nullptr)) != nullptr; }));
    PostMessageW(help, WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitFor([&] { return family.Running() == 1; }));
    EXPECT_EQ(family.Started(), 3u);
    EXPECT_EQ(about.camera.Dialog(), about.dialog);
}

class AboutInLanguage : public testing::TestWithParam<const wchar_t*> {};

// The list leaves some pixels on both sides of a text.
TEST_P(AboutInLanguage, EveryTextFitsItsColumn) {
    constexpr int kCellMargin = 12;
    OpenAbout about({{{L"HANDHELD_LCID", GetParam()}}, {}, "", {}});
    EXPECT_FALSE(about.Label(kTitle).empty());
    for (int column = 0; column < 2; ++column) {
        const int room = about.ColumnWidth(column) - kCellMargin;
        EXPECT_FALSE(ListHeading(about.list, column).empty());
        EXPECT_LE(ListTextWidth(about.list, ListHeading(about.list, column)), room);
        for (int row = 0; row < 4; ++row) {
            const std::wstring cell = ListCell(about.list, row, column);
            EXPECT_FALSE(cell.empty()) << row;
            EXPECT_LE(ListTextWidth(about.list, cell), room) << row;
        }
    }
}

// Wherever a font's blanks end; letters keep a pixel or two of distance to their left.
TEST_P(AboutInLanguage, TheTimeStandsBelowTheProductsName) {
    constexpr int kSideBearing = 2, kMargin = 4;  // further left the picture may show
    OpenAbout about({{{L"HANDHELD_LCID", GetParam()}}, {}, "", {}});
    RECT title;
    GetWindowRect(GetDlgItem(about.dialog, kTitle), &title);
    const auto inkOf = [&](int id) {
        RECT place;
        GetWindowRect(GetDlgItem(about.dialog, id), &place);
        const ScreenPicture label(GetDlgItem(about.dialog, id));
        for (int x = std::max<int>(0, title.left - kMargin - place.left); x < label.Width(); ++x)
            for (int y = 0; y < label.Height(); ++y)
                if (GetGValue(label.At(x, y)) < 128) return static_cast<int>(place.left) + x;
        return -1;
    };
    // What stood there before the dialog was painted is ink, too.
    EXPECT_TRUE(WaitFor([&] { return inkOf(kTitle) >= 0 && std::abs(inkOf(kTime) - inkOf(kTitle)) <= kSideBearing; }, 5000))
        << inkOf(kTime) << " and " << inkOf(kTitle);
}

TEST_P(AboutInLanguage, ThePictureIsWhole) {
    constexpr unsigned kPicture = 240;
    OpenAbout about({{{L"HANDHELD_LCID", GetParam()}}, {}, "", {}});
    const PixelPicture picture = ProgramBitmap(kPicture);
    ASSERT_GT(picture.width, 0);
    HWND control = nullptr;
    while ((control = FindWindowExW(about.dialog, control, L"STATIC", nullptr)) != nullptr)
        if ((GetWindowLongW(control, GWL_STYLE) & SS_TYPEMASK) == SS_BITMAP) break;
    ASSERT_NE(control, nullptr);
    EXPECT_TRUE(WaitFor([&] {
        const ScreenPicture shown(control);
        for (int y = 0; y < std::min(picture.height, shown.Height()); ++y) {
            for (int x = 0; x < std::min(picture.width, shown.Width()); ++x) {
                const uint8_t* const pixel = picture.At(x, y);
                if (shown.At(x, y) != RGB(pixel[2], pixel[1], pixel[0])) return false;
            }
        }
        return true;
    }, 5000));
}

INSTANTIATE_TEST_SUITE_P(All, AboutInLanguage,
                         testing::Values(L"1033", L"2052", L"1028", L"1031", L"1036", L"1040", L"1046",
                                         L"3082", L"1042"));

}  // namespace
