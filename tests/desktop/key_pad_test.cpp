// The key pad below the screen: its keys reach the program as the keyboard's do, its card is the program's
// card.
#include <gtest/gtest.h>

#include "desktop/camera_process.h"
#include "desktop/screen_picture.h"
#include "handheld/keypad/pad_layout.h"

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

constexpr UINT kActionKey = 134, kMenuKey = 193, kPlayKey = 194, kZoomOutKey = 195, kZoomInKey = 196;
constexpr UINT kZoomIn = 1605;
constexpr char kStop[] = "control 0x80000017 in 0 out 0";
constexpr char kReopenFailed[] = "open access 0xC0000000 share 0 failed";
constexpr POINT kCard = {120, 97};

std::string Preview(int mode) {
    return "control 0x8000000F in " + std::to_string(mode) + " out 0 preview mode " + std::to_string(mode);
}

// The process's pad, or null.
HWND FindPad(DWORD process) {
    HWND pad = nullptr;
    while ((pad = FindWindowExW(nullptr, pad, handheld::kPadClass, nullptr)) != nullptr) {
        DWORD owner = 0;
        GetWindowThreadProcessId(pad, &owner);
        if (owner == process) break;
    }
    return pad;
}

RECT PlaceOf(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    return place;
}

CameraOptions WithPad(const fs::path& program = {}) {
    return {{{L"HANDHELD_KEYPAD", L"on"}},
            {{L"aviresolution", 0}, {L"recordwithaudio", 0}, {L"instant review", 0}},
            "",
            program};
}

class KeyPad : public testing::Test {
  protected:
    explicit KeyPad(const fs::path& program = {}) : camera(WithPad(program)) {}

    void SetUp() override {
        screen = camera.Screen();
        ASSERT_NE(screen, nullptr);
        ASSERT_TRUE(WaitFor([&] { return (pad = FindPad(camera.Id())) != nullptr && IsWindowVisible(pad); }));
        ASSERT_TRUE(camera.WaitForFrames(3));
        before = camera.Calls().size();
    }

    void Touch(UINT message, POINT place) { SendMessageW(pad, message, 0, MAKELPARAM(place.x, place.y)); }
    static POINT Middle(UINT key) {
        for (const handheld::PadKey& padKey : handheld::kPadKeys)
            if (padKey.key == key) return {padKey.x, padKey.y};
        ADD_FAILURE() << "no key " << key;
        return {};
    }
    void Press(UINT key) {
        Touch(WM_LBUTTONDOWN, Middle(key));
        Touch(WM_LBUTTONUP, Middle(key));
    }
    void MoveCard() {
        Touch(WM_LBUTTONDOWN, kCard);
        Touch(WM_LBUTTONUP, kCard);
    }
    fs::path FirstPicture() const { return camera.Store() / "My Documents" / "My Pictures" / "snap0001.jpg"; }

    CameraProcess camera;
    HWND screen = nullptr, pad = nullptr;
    size_t before = 0;
};

TEST(NoKeyPad, WhenSwitchedOff) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(10));
    EXPECT_EQ(FindPad(camera.Id()), nullptr);
}

TEST_F(KeyPad, ZoomKeys) {
    Press(kZoomInKey);
    EXPECT_EQ(camera.CallsSince(before, 2), (Lines{kStop, Preview(9)}));
    Press(kZoomOutKey);
    EXPECT_EQ(camera.CallsSince(before, 4), (Lines{kStop, Preview(9), kStop, Preview(4)}));
}

TEST_F(KeyPad, MenuKeyOpensTheSheet) {
    Press(kMenuKey);
    EXPECT_TRUE(WaitFor([&] { return camera.Calls().size() > before; }));
    EXPECT_TRUE(WaitFor([&] {
        const HWND front = GetLastActivePopup(screen);
        return front != screen && front != pad && IsWindowVisible(front);
    }));
}

TEST_F(KeyPad, ActionKeyTakesAPicture) {
    Press(kActionKey);
    EXPECT_EQ(camera.CallsSince(before, 3).size(), 3u);
    EXPECT_TRUE(fs::exists(FirstPicture()));
}

// The program acts on a key's release.
TEST_F(KeyPad, AHeldKeyIsDown) {
    Touch(WM_LBUTTONDOWN, Middle(kActionKey));
    ASSERT_TRUE(camera.WaitForFrames(5));
    EXPECT_EQ(camera.Calls().size(), before);
    Touch(WM_LBUTTONUP, Middle(kActionKey));
    EXPECT_EQ(camera.CallsSince(before, 3).size(), 3u);
}

TEST_F(KeyPad, AHeldKeyLooksPressed) {
    const ScreenPicture rest(pad);
    Touch(WM_LBUTTONDOWN, Middle(kActionKey));
    EXPECT_TRUE(WaitFor([&] { return !(ScreenPicture(pad) == rest); }));
    Touch(WM_LBUTTONUP, Middle(kActionKey));
    EXPECT_TRUE(WaitFor([&] { return ScreenPicture(pad) == rest; }));
}

// Press and release are waiting before the commands are; of those behind the release it drops three.
TEST_F(KeyPad, ActionKeyFlushesThreeMessages) {
    camera.SetCard("silent\nrefuse-still");
    ASSERT_TRUE(WaitFor([&] { return camera.CountCalls("card silent") != 0; }));
    camera.Freeze();
    Press(kActionKey);
    for (int i = 0; i < 4; ++i) camera.Command(kZoomIn);
    camera.Thaw();
    EXPECT_TRUE(WaitFor([&] { return camera.CountCalls(Preview(9)) != 0; }));
    camera.SetCard("");
    EXPECT_TRUE(camera.WaitForFrames(3));
    EXPECT_EQ(camera.CountCalls(Preview(17)), 0u);
}

TEST_F(KeyPad, BesideTheKeysNothingHappens) {
    const POINT places[] = {{4, 4}, {120, 4}, {44, 60}, {236, 60}, {20, 100}, {239, 111}};
    for (const POINT& place : places) {
        Touch(WM_LBUTTONDOWN, place);
        Touch(WM_LBUTTONUP, place);
    }
    ASSERT_TRUE(camera.WaitForFrames(5));
    EXPECT_EQ(camera.Calls().size(), before);
}

// With a real mouse.
TEST_F(KeyPad, AClickLeavesTheFocusWhereItIs) {
    const HWND front = GetForegroundWindow();
    const RECT place = PlaceOf(pad);
    const POINT key = Middle(kZoomInKey);
    SetCursorPos(place.left + key.x, place.top + key.y);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    EXPECT_EQ(camera.CallsSince(before, 2), (Lines{kStop, Preview(9)}));
    EXPECT_EQ(GetForegroundWindow(), front);
    EXPECT_NE(GetForegroundWindow(), pad);
}

TEST_F(KeyPad, ThePulledCardIsReopenedWhenItIsBack) {
    const ScreenPicture in(pad);
    MoveCard();
    EXPECT_TRUE(WaitFor([&] { return !(ScreenPicture(pad) == in); }));
    ASSERT_TRUE(WaitFor([&] { return camera.CountCalls(kReopenFailed) != 0; }));
    MoveCard();
    EXPECT_TRUE(camera.WaitForFrames(5));
    EXPECT_TRUE(WaitFor([&] { return ScreenPicture(pad) == in; }));
    Lines events;
    for (const std::string& line : camera.Calls())
        if (line.compare(0, 5, "card ") == 0) events.push_back(line);
    EXPECT_EQ(events, (Lines{"card unplugged", "card inserted"}));
}

TEST_F(KeyPad, ACardThatStaysOutEndsTheProgram) {
    MoveCard();
    EXPECT_TRUE(camera.WaitForEnd());
    EXPECT_FALSE(IsWindow(pad));
}

TEST_F(KeyPad, TheSlotShowsWhatTheControlFileDoes) {
    const ScreenPicture in(pad);
    camera.SetCard("unplugged");
    EXPECT_TRUE(WaitFor([&] { return !(ScreenPicture(pad) == in); }));
    MoveCard();
    EXPECT_TRUE(WaitFor([&] { return ScreenPicture(pad) == in; }));
    EXPECT_TRUE(camera.WaitForFrames(5));
}

TEST_F(KeyPad, FollowsTheScreen) {
    const auto below = [&] {
        const RECT above = PlaceOf(screen), place = PlaceOf(pad);
        return place.left == above.left && place.top == above.bottom && place.right == above.right;
    };
    EXPECT_TRUE(WaitFor(below));
    SetWindowPos(screen, nullptr, 17, 33, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_TRUE(WaitFor(below));
    EXPECT_EQ(PlaceOf(screen).left, 17);
}

TEST_F(KeyPad, HidesAndComesBackWithTheScreen) {
    ShowWindow(screen, SW_MINIMIZE);
    EXPECT_TRUE(WaitFor([&] { return !IsWindowVisible(pad); }));
    ShowWindow(screen, SW_RESTORE);
    EXPECT_TRUE(WaitFor([&] { return IsWindowVisible(pad); }));
}

TEST_F(KeyPad, GoesWithTheScreen) {
    EXPECT_TRUE(camera.ExitsInOrder());
    EXPECT_FALSE(IsWindow(pad));
}

// Where the picture viewer is missing, so that Play stays here to tell.
class KeyPadAlone : public KeyPad {
  protected:
    KeyPadAlone() : KeyPad(MakeCopy() / "zelcamera.exe") {}
    ~KeyPadAlone() override {
        TerminateProcess(camera.Handle(), 99);
        camera.WaitForEnd();
        std::error_code ignored;
        fs::remove_all(Folder(), ignored);
    }

  private:
    static fs::path Folder() {
        return fs::temp_directory_path() / ("zel-key-pad-" + std::to_string(GetCurrentProcessId()));
    }
    static fs::path MakeCopy() {
        fs::create_directories(Folder());
        for (const char* name :
             {"zelcamera.exe", "coredll.dll", "aygshell.dll", "commctrl.dll", "sio.dll", "Localization.dll"})
            fs::copy_file(CameraProcess::BuildFolder() / name, Folder() / name,
                          fs::copy_options::overwrite_existing);
        return Folder();
    }
};

TEST_F(KeyPadAlone, PlayKeyAsksForTheViewer) {
    Press(kPlayKey);
    HWND box = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (box = camera.MessageBox()) != nullptr; }));
    EXPECT_EQ(CameraProcess::MessageText(box), L"ERROR::\n Run korvoimgview.exe faile!");
    EXPECT_EQ(camera.CallsSince(before, 2), (Lines{kStop, "control 0x8000002B in 0 out 0"}));
    // The card stays shut down, and the program can still be left.
    CameraProcess::Press(box, IDOK);
    ASSERT_TRUE(WaitFor([&] { return camera.MessageBox() == nullptr; }));
    EXPECT_TRUE(camera.ExitsInOrder());
    for (const std::string& call : camera.CallsSince(before, 4))
        EXPECT_EQ(call.find("preview"), std::string::npos) << call;
}

}  // namespace
