// Settings of the stand-in handheld that make no sense, or little: the camera runs on what is left.
#include <gtest/gtest.h>

#include "desktop/camera_process.h"
#include "desktop/pictures.h"

namespace {

namespace fs = std::filesystem;

constexpr UINT kShutter = 1601;

struct OddSetting {
    const wchar_t* name;
    const wchar_t* value;
};
class OddHandheld : public testing::TestWithParam<OddSetting> {};

TEST_P(OddHandheld, RunsTheCamera) {
    const CameraOptions options = {{{GetParam().name, GetParam().value}},
                                   {{L"resolution", 3}, {L"instant review", 0}, {L"selftime", 0}},
                                   "",
                                   {}};
    CameraProcess camera(options);
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    camera.Command(kShutter);
    EXPECT_TRUE(WaitFor([] { return ProfileValue(L"jpgno", 0) == 2; }));
    EXPECT_TRUE(IsWholePicture(PicturePath(camera, 1)));
    EXPECT_TRUE(camera.ExitsInOrder());
}

INSTANTIATE_TEST_SUITE_P(
    Values, OddHandheld,
    testing::Values(OddSetting{L"HANDHELD_FPS", L"0"}, OddSetting{L"HANDHELD_FPS", L"1000000"},
                    OddSetting{L"HANDHELD_FPS", L"many"}, OddSetting{L"HANDHELD_STORE_KB", L"-1"},
                    OddSetting{L"HANDHELD_STORE_KB", L"99999999999"},
                    OddSetting{L"HANDHELD_CAMERA", L"folder:C:\\no such folder"},
                    OddSetting{L"HANDHELD_CAMERA", L"folder:"}, OddSetting{L"HANDHELD_CAMERA", L"unheard of"},
                    OddSetting{L"HANDHELD_CARD", L"C:\\no such folder\\card"},
                    OddSetting{L"HANDHELD_CARD", L"C:\\windows"}, OddSetting{L"HANDHELD_LCID", L"-7"},
                    OddSetting{L"HANDHELD_KEYPAD", L"perhaps"}));

// Words that the card does not know, and far more of them than it reads.
TEST(OddControlFile, IsReadAsFarAsItMakesSense) {
    CameraProcess camera;
    ASSERT_NE(camera.Screen(), nullptr);
    camera.SetCard("umplugged\n\xFF\xFE\x01 \xC3\xA9");
    EXPECT_TRUE(camera.WaitForFrames(3));
    camera.SetCard(std::string(3000000, 'x') + "\nunplugged");
    EXPECT_TRUE(camera.WaitForFrames(3));
    EXPECT_TRUE(camera.ExitsInOrder());
}

// The handheld's own folder replaced by a file while the camera runs.
TEST(OddStore, AFileInThePlaceOfThePictureFolder) {
    CameraProcess camera({{}, {{L"instant review", 1}, {L"selftime", 0}}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    fs::remove_all(PictureFolder(camera));
    WriteBytes(PictureFolder(camera), "a file");
    camera.Command(kShutter);
    EXPECT_TRUE(WaitFor([] { return ProfileValue(L"jpgno", 0) == 2; }));
    EXPECT_TRUE(camera.WaitForFrames(3));
    EXPECT_TRUE(ReadBytes(PictureFolder(camera)) == "a file");
    EXPECT_TRUE(camera.ExitsInOrder());
}

TEST(OddStore, AFileInThePlaceOfMyDocumentsLeavesNoRoom) {
    CameraProcess camera({{}, {{L"selftime", 0}}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    fs::remove_all(camera.Store());
    WriteBytes(camera.Store(), "a file");
    // What was measured before may hold for a moment.
    HWND box = nullptr;
    EXPECT_TRUE(WaitFor([&] {
        camera.Command(kShutter);
        return (box = camera.MessageBox()) != nullptr;
    }));
    CameraProcess::Press(box, IDOK);
    EXPECT_TRUE(WaitFor([&] { return camera.MessageBox() == nullptr; }));
    EXPECT_TRUE(camera.ExitsInOrder());
    EXPECT_TRUE(ReadBytes(camera.Store()) == "a file");
}

}  // namespace
