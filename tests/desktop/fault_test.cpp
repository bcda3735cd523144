// Bad frames, bad profiles, bad stores: the program keeps going.
#include <gtest/gtest.h>

#include "desktop/camera_process.h"
#include "desktop/screen_picture.h"

namespace {

class BadFrames : public testing::TestWithParam<const char*> {};

TEST_P(BadFrames, AreDroppedAndTheNextGoodOneShows) {
    CameraProcess camera({{}, {{L"aviresolution", 0}}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    camera.SetCard(GetParam());
    ASSERT_TRUE(camera.WaitForFrames(20));
    camera.SetCard("");
    ASSERT_TRUE(camera.WaitForFrames(5));
    const ScreenPicture good(camera.LiveView());
    EXPECT_TRUE(WaitFor([&] { return !(ScreenPicture(camera.LiveView()) == good); }));
    EXPECT_TRUE(camera.ExitsInOrder());
}

INSTANTIATE_TEST_SUITE_P(Kinds, BadFrames, testing::Values("garbage", "short", "long"));

TEST(BadProfile, ValuesOutOfRangeAreHarmless) {
    CameraProcess camera({{},
                          {{L"awb", 77}, {L"color", 0xFFFFFFFF}, {L"resolution", 9}, {L"aviresolution", 9},
                           {L"jpgno", 0xFFFFFFFF}, {L"selftime", 99}, {L"business card", 5}},
                          "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(WaitFor([&] { return camera.Calls().size() >= 3; }));
    for (const std::string& line : camera.Calls()) EXPECT_EQ(line.find("preview"), std::string::npos) << line;
    EXPECT_TRUE(camera.IsRunning());
    EXPECT_TRUE(camera.ExitsInOrder());
}

TEST(BadProfile, ValuesOfAnotherKindGiveTheDefaults) {
    const wchar_t text[] = L"oops";
    CameraProcess camera;  // clears the profile
    RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Zel\\Setting", L"awb", REG_SZ, text, sizeof(text));
    ASSERT_NE(camera.Screen(), nullptr);
    ASSERT_TRUE(camera.WaitForFrames(3));
    EXPECT_TRUE(camera.ExitsInOrder());
}

TEST(BadStore, WithoutRoomTheCountIsZeroAndTheCameraRuns) {
    CameraProcess camera({{{L"HANDHELD_STORE_KB", L"1"}}, {}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    EXPECT_TRUE(camera.WaitForFrames(5));
    EXPECT_TRUE(camera.ExitsInOrder());
}

TEST(BadStore, AnUnreadableStoreStopsNothing) {
    // A file where the store's folder should be.
    CameraProcess camera({{{L"HANDHELD_ROOT", (CameraProcess::BuildFolder() / "zelcamera.exe").wstring()}}, {}, "", {}});
    ASSERT_NE(camera.Screen(), nullptr);
    EXPECT_TRUE(camera.WaitForFrames(5));
    EXPECT_TRUE(camera.ExitsInOrder());
}

}  // namespace
