// Exit and the system's close in every state: the program ends, in order, and keeps every picture.
#include <gtest/gtest.h>

#include "desktop/camera_process.h"
#include "desktop/pictures.h"

namespace {

namespace fs = std::filesystem;

constexpr UINT kMenu = 32771, kExit = 32827, kAbout = 32829, kShutter = 1601;
constexpr char kShutDown[] = "control 0x8000002B in 0 out 0";
constexpr char kStill[] = "control 0x80000007";
constexpr char kReopenFailed[] = "open access 0xC0000000 share 0 failed";
constexpr int kFileLeft = 16, kBarBottom = 310;  // a place on the menu bar's first button

enum class Way { exit, close };

// A state of the program: the settings it takes, the store, and how to get there from the live view.
struct State {
    const char* name;
    std::vector<std::pair<std::wstring, DWORD>> settings;
    const wchar_t* storeKb;
    void (*enter)(CameraProcess& camera);
    int pictures;  // that must be there at the end
};

bool Heard(const CameraProcess& camera, const char* call) {
    return camera.CountCalls(call) != 0;
}

void Live(CameraProcess&) {}

void CountDown(CameraProcess& camera) {
    camera.Command(kShutter);
    EXPECT_TRUE(camera.WaitForFrames(5));
    EXPECT_FALSE(Heard(camera, kStill));
}

// The way out is waiting behind the shutter.
void Capture(CameraProcess& camera) {
    camera.Command(kShutter);
}

void Review(CameraProcess& camera) {
    camera.Command(kShutter);
    EXPECT_TRUE(WaitFor([&] { return Heard(camera, kStill); }));
    EXPECT_TRUE(camera.WaitForFrames(2));
}

void PopUp(CameraProcess& camera) {
    RECT place;
    GetWindowRect(camera.Screen(), &place);
    PostMessageW(camera.Screen(), WM_NCLBUTTONDOWN, HTMENU,
                 MAKELPARAM(place.left + kFileLeft, place.top + kBarBottom));
    EXPECT_TRUE(WaitFor([] {
        const HWND popup = FindWindowW(L"#32768", nullptr);
        return popup != nullptr && IsWindowVisible(popup);
    }));
}

void NoSpaceMessage(CameraProcess& camera) {
    camera.Command(kShutter);
    EXPECT_TRUE(WaitFor([&] { return camera.MessageBox() != nullptr; }));
}

void DeleteQuestion(CameraProcess& camera) {
    Review(camera);
    PostMessageW(camera.LiveView(), WM_LBUTTONDOWN, 0, MAKELPARAM(120, 90));
    EXPECT_TRUE(WaitFor([&] { return camera.MessageBox() != nullptr; }));
}

void Sheet(CameraProcess& camera) {
    camera.Command(kMenu);
    EXPECT_TRUE(WaitFor([&] { return camera.Dialog() != nullptr; }));
}

void About(CameraProcess& camera) {
    camera.Command(kAbout);
    EXPECT_TRUE(WaitFor([&] { return camera.Dialog() != nullptr; }));
}

void CardOut(CameraProcess& camera) {
    camera.SetCard("unplugged");
    EXPECT_TRUE(WaitFor([&] { return Heard(camera, kReopenFailed); }));
}

void FolderGone(CameraProcess& camera) {
    fs::remove_all(PictureFolder(camera));
    camera.Command(kShutter);
    EXPECT_TRUE(WaitFor([&] { return Heard(camera, kStill); }));
}

void StoreGone(CameraProcess& camera) {
    fs::remove_all(camera.Store());
    EXPECT_TRUE(camera.WaitForFrames(3));
}

const State kStates[] = {
    {"live", {}, L"65536", Live, 0},
    {"countdown", {{L"selftime", 2}}, L"65536", CountDown, 0},
    {"capture", {}, L"65536", Capture, 1},
    {"review", {{L"instant review", 3}}, L"65536", Review, 1},
    {"menu", {}, L"65536", PopUp, 0},
    {"noSpaceMessage", {}, L"2100", NoSpaceMessage, 0},
    {"deleteQuestion", {{L"instant review", 3}}, L"65536", DeleteQuestion, 1},
    {"sheet", {}, L"65536", Sheet, 0},
    {"about", {}, L"65536", About, 0},
    {"cardOut", {}, L"65536", CardOut, 0},
    {"folderGone", {}, L"65536", FolderGone, 0},
    {"storeGone", {}, L"65536", StoreGone, 0},
};

class Closing : public testing::TestWithParam<std::tuple<State, Way>> {};

TEST_P(Closing, EndsTheProgramInOrder) {
    const auto& [state, way] = GetParam();
    std::vector<std::pair<std::wstring, DWORD>> settings = {
        {L"aviresolution", 0}, {L"instant review", 0}, {L"selftime", 0}, {L"resolution", 3}};
    settings.insert(settings.end(), state.settings.begin(), state.settings.end());
    CameraProcess camera({{{L"HANDHELD_STORE_KB", state.storeKb}}, settings, "", {}});
    const HWND screen = camera.Screen();
    ASSERT_NE(screen, nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    state.enter(camera);
    if (way == Way::exit)
        PostMessageW(screen, WM_COMMAND, kExit, 0);
    else
        PostMessageW(screen, WM_CLOSE, 0, 0);
    ASSERT_TRUE(camera.WaitForEnd());
    EXPECT_TRUE(camera.EndedInOrder());
    EXPECT_FALSE(IsWindow(screen));
    EXPECT_TRUE(Heard(camera, kShutDown) || Heard(camera, kReopenFailed));
    const std::vector<std::string> files = FilesIn(PictureFolder(camera));
    EXPECT_EQ(files.size(), static_cast<size_t>(state.pictures));
    for (const std::string& file : files) EXPECT_TRUE(IsWholePicture(PictureFolder(camera) / file)) << file;
}

std::string NameOf(const testing::TestParamInfo<std::tuple<State, Way>>& run) {
    return std::string(std::get<0>(run.param).name) +
           (std::get<1>(run.param) == Way::exit ? "_exit" : "_close");
}

INSTANTIATE_TEST_SUITE_P(InEveryState, Closing,
                         testing::Combine(testing::ValuesIn(kStates), testing::Values(Way::exit, Way::close)),
                         NameOf);

}  // namespace
