// Play: the camera leaves the screen to the viewer.
#include <gtest/gtest.h>

#include <memory>

#include "desktop/camera_process.h"

namespace {

using Lines = std::vector<std::string>;

constexpr UINT kShutter = 1601, kPlayButton = 1603, kPlay = 32830, kExit = 32827;
constexpr UINT kPlayKey = 194;
constexpr wchar_t kViewer[] = L"HandheldPictureViewer";
constexpr char kStop[] = "control 0x80000017 in 0 out 0";
constexpr char kShutDown[] = "control 0x8000002B in 0 out 0";

// The viewer that a camera started, closed in the end.
class Viewer {
  public:
    Viewer() { WaitFor([&] { return (m_window = FindWindowW(kViewer, nullptr)) != nullptr; }); }
    ~Viewer() {
        if (IsWindow(m_window)) PostMessageW(m_window, WM_CLOSE, 0, 0);
        EXPECT_TRUE(WaitFor([] { return FindWindowW(kViewer, nullptr) == nullptr; }));
    }
    Viewer(const Viewer&) = delete;
    Viewer& operator=(const Viewer&) = delete;

    void Click(int x, int y) const {
        PostMessageW(m_window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        PostMessageW(m_window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    }
    bool HasTitle(const std::wstring& title) const {
        return WaitFor([&] {
            wchar_t text[64] = {};
            GetWindowTextW(m_window, text, 64);
            return title == text;
        });
    }

  private:
    HWND m_window = nullptr;
};

class Play : public testing::Test {
  protected:
    void Start(DWORD jpgNo = 1, const std::filesystem::path& program = {}) {
        camera = std::make_unique<CameraProcess>(CameraOptions{
            {}, {{L"aviresolution", 0}, {L"instant review", 0}, {L"recordwithaudio", 0}, {L"jpgno", jpgNo}}, "", program});
        ASSERT_NE(camera->Screen(), nullptr);
        ASSERT_TRUE(camera->WaitForFrames(3));
    }
    void TakePicture() {
        const DWORD number = ProfileValue(L"jpgno", 1);
        camera->Command(kShutter);
        ASSERT_TRUE(WaitFor([&] { return ProfileValue(L"jpgno", 1) != number; }));
        ASSERT_TRUE(camera->WaitForFrames(3));
    }
    void ExpectEnd() {
        ASSERT_TRUE(camera->WaitForEnd());
        DWORD code = 1;
        GetExitCodeProcess(camera->Handle(), &code);
        EXPECT_EQ(code, 0u);
    }

    std::unique_ptr<CameraProcess> camera;
};

TEST_F(Play, ShowsTheLastPictureAndEnds) {
    Start(7);
    TakePicture();
    TakePicture();
    const size_t before = camera->Calls().size();
    camera->Command(kPlay);
    ExpectEnd();
    const Viewer viewer;
    EXPECT_TRUE(viewer.HasTitle(L"snap0008.jpg"));
    const Lines calls = camera->CallsSince(before, 2);
    ASSERT_GE(calls.size(), 2u);
    EXPECT_EQ(Lines(calls.begin(), calls.begin() + 2), (Lines{kStop, kShutDown}));
}

TEST_F(Play, WithoutAPictureOfThisRunNamesNone) {
    Start(7);
    camera->Command(kPlayButton);
    ExpectEnd();
    const Viewer viewer;
    EXPECT_TRUE(viewer.HasTitle(L"Pictures"));
}

TEST_F(Play, KeyDoesTheSame) {
    Start();
    TakePicture();
    camera->ReleaseKey(kPlayKey);
    ExpectEnd();
    const Viewer viewer;
    EXPECT_TRUE(viewer.HasTitle(L"snap0001.jpg"));
}

// The number before 1 is 0, not 9999: the name belongs to no picture.
TEST_F(Play, AfterTheNumberWrappedAPictureThatDoesNotExistIsNamed) {
    Start(9999);
    TakePicture();
    camera->Command(kPlay);
    ExpectEnd();
    const Viewer viewer;
    EXPECT_TRUE(viewer.HasTitle(L"snap0000.jpg"));
}

TEST_F(Play, TheViewerLeadsBackToTheCamera) {
    Start();
    TakePicture();
    camera->Command(kPlay);
    ExpectEnd();
    const size_t frames = camera->Frames();
    {
        const Viewer viewer;
        ASSERT_TRUE(viewer.HasTitle(L"snap0001.jpg"));
        viewer.Click(220, 300);  // its last button
    }
    const HWND screen = camera->ScreenOfAny();
    ASSERT_NE(screen, nullptr);
    EXPECT_TRUE(WaitFor([&] { return camera->Frames() > frames + 3; }));
    PostMessageW(screen, WM_COMMAND, kExit, 0);
    EXPECT_TRUE(WaitFor([&] { return !IsWindow(screen); }));
}

TEST_F(Play, WithoutTheViewerTheCameraStaysShutDown) {
    const ProgramCopy copy({"korvoimgview.exe"});
    Start(1, copy.Program());
    camera->Command(kPlay);
    HWND box = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (box = camera->MessageBox()) != nullptr; }));
    EXPECT_EQ(CameraProcess::MessageText(box), L"ERROR::\n Run korvoimgview.exe faile!");
    wchar_t caption[64] = {};
    GetWindowTextW(box, caption, 64);
    EXPECT_STREQ(caption, L"Lumetta Camera");
    CameraProcess::Press(box, IDOK);
    ASSERT_TRUE(WaitFor([&] { return camera->MessageBox() == nullptr; }));
    const size_t frames = camera->Frames(), calls = camera->Calls().size();
    Sleep(1500);  // two rounds of the watchdog
    EXPECT_EQ(camera->Frames(), frames);
    EXPECT_EQ(camera->Calls().size(), calls);
    camera->Command(kExit);
    ExpectEnd();
}

}  // namespace
