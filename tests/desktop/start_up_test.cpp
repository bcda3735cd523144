// From process start to the first live frame, and the ways out.
#include <gtest/gtest.h>

#include "desktop/camera_process.h"

namespace {

using Lines = std::vector<std::string>;

constexpr char kOpen[] = "open access 0xC0000000 share 3";
constexpr char kEventWindow[] = "control 0x80000027 in 0 out 0";
constexpr char kShutDown[] = "control 0x8000002B in 0 out 0";

const Lines kStartUp = {kOpen, kEventWindow, "control 0x8000001B in 16 out 0 params awb 0 color 0 quality 1 metering 1",
                        "control 0x8000000F in 6 out 0 preview mode 6"};

Lines With(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

TEST(CameraScreen, StartUpTrace) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    EXPECT_EQ(camera.Calls(), kStartUp);
}

TEST(CameraScreen, StartUpTraceOfTheLargeSize) {
    CameraProcess camera({{}, {{L"aviresolution", 0}, {L"awb", 2}, {L"color", 1}, {L"imagequality", 2}, {L"ae metering", 0}}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    EXPECT_EQ(camera.Calls(),
              (Lines{kOpen, kEventWindow, "control 0x8000001B in 16 out 0 params awb 2 color 1 quality 2 metering 0",
                     "control 0x8000000F in 4 out 0 preview mode 4"}));
}

// Exit releases the card and closes it; the window's end releases it again, on a handle that is gone.
TEST(CameraScreen, FrameRequestsGiveNoOutputSize) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    for (const std::string& line : camera.Log())
        EXPECT_TRUE(line.find("0x80000013") == std::string::npos || line == "control 0x80000013 in 4 out 0") << line;
}

TEST(CameraScreen, ExitTrace) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    camera.Command(32827);
    ASSERT_TRUE(camera.WaitForEnd());
    EXPECT_EQ(camera.Calls(), With(kStartUp, {kShutDown, "close"}));
}

TEST(CameraScreen, CloseTrace) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    PostMessageW(camera.Screen(), WM_CLOSE, 0, 0);
    ASSERT_TRUE(camera.WaitForEnd());
    const Lines calls = camera.Calls();
    ASSERT_GT(calls.size(), kStartUp.size());
    EXPECT_EQ(calls[kStartUp.size()], kShutDown);
}

TEST(CameraScreen, MakesThePictureFolder) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    EXPECT_TRUE(std::filesystem::is_directory(camera.Store() / "My Documents" / "My Pictures"));
}

TEST(CameraScreen, TitleIsTheProgramsName) {
    CameraProcess camera;
    wchar_t title[64] = {};
    GetWindowTextW(camera.Screen(), title, 64);
    EXPECT_STREQ(title, L"Lumetta Camera");
}

TEST(CameraScreen, NothingIsWrittenToTheProfileByStartingAndEnding) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    camera.Command(32827);
    ASSERT_TRUE(camera.WaitForEnd());
    HKEY key = nullptr;
    EXPECT_NE(RegOpenKeyW(HKEY_CURRENT_USER, L"Software\\Zel\\Setting", &key), ERROR_SUCCESS);
}

TEST(CameraScreen, WithoutACardOneMessageAndTheEnd) {
    CameraProcess camera({{{L"HANDHELD_CAMERA", L"none"}}, {}, "", {}});
    HWND box = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (box = camera.MessageBox()) != nullptr; }));
    EXPECT_FALSE(CameraProcess::MessageText(box).empty());
    CameraProcess::Press(box, IDOK);
    EXPECT_TRUE(camera.WaitForEnd());
    for (const std::string& line : camera.Calls()) EXPECT_EQ(line.compare(0, 4, "open"), 0) << line;
}

TEST(CameraScreen, AnUnpluggedCardAtStartIsToldInTheUsersLanguage) {
    CameraProcess english({{}, {}, "unplugged", {}});
    HWND box = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (box = english.MessageBox()) != nullptr; }));
    const std::wstring text = CameraProcess::MessageText(box);
    CameraProcess::Press(box, IDOK);
    EXPECT_TRUE(english.WaitForEnd());
    CameraProcess german({{{L"HANDHELD_LCID", L"1031"}}, {}, "unplugged", {}});
    ASSERT_TRUE(WaitFor([&] { return (box = german.MessageBox()) != nullptr; }));
    EXPECT_NE(CameraProcess::MessageText(box), text);
    CameraProcess::Press(box, IDOK);
    EXPECT_TRUE(german.WaitForEnd());
}

// A copy of the program's folder in which the text library is missing or is another library.
class DamagedTexts : public testing::TestWithParam<bool> {};

TEST_P(DamagedTexts, OneMessageAndTheCameraRuns) {
    const ProgramCopy copy({"Localization.dll"});
    if (GetParam()) std::filesystem::copy_file(copy.Folder() / "commctrl.dll", copy.Folder() / "Localization.dll");
    CameraProcess camera({{}, {}, "", copy.Program()});
    HWND box = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (box = camera.MessageBox()) != nullptr; }));
    EXPECT_NE(CameraProcess::MessageText(box).find(L"Localization.dll"), std::wstring::npos);
    CameraProcess::Press(box, IDOK);
    ASSERT_NE(camera.Screen(), nullptr);
    EXPECT_TRUE(camera.WaitForFrames(3));
    camera.Command(32827);
    EXPECT_TRUE(camera.WaitForEnd());
}

INSTANTIATE_TEST_SUITE_P(LibraryMissingOrWithoutItsExport, DamagedTexts, testing::Bool());

}  // namespace
