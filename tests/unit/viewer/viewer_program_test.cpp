#include "unit/viewer/avi_bytes.h"
#include "unit/viewer/camera_frame.h"
#include "unit/viewer/program_fixture.h"

namespace viewer {
namespace {

constexpr int kMiddleX = 120, kMiddleY = 156;
constexpr uint32_t kGreen = 0x00C800;  // of a picture's pixels, and of the screen
constexpr COLORREF kBlueFrame = RGB(0, 0, 220);
constexpr COLORREF kPaper = RGB(28, 28, 32);

class ViewerProgram : public CProgramFixture {
  protected:
    void Picture(const std::wstring& name, const std::string& bytes) {
        Write(L"\\My Documents\\My Pictures\\" + name, bytes);
    }
    void StartViewer(const std::wstring& arguments) {
        Start(L"korvoimgview.exe", arguments, L"HandheldPictureViewer");
    }
};

TEST_F(ViewerProgram, ShowsThePictureGivenAndStepsThroughItsFolder) {
    Picture(L"snap0001.jpg", "damaged");
    Picture(L"snap0002.bmp", Bmp(64, 48, kGreen));
    Picture(L"snap0010.bmp", Bmp(64, 48, 0xC80000));
    StartViewer(L"\\My Documents\\My Pictures\\snap0002.bmp");
    ASSERT_TRUE(HasTitle(L"snap0002.bmp"));
    EXPECT_TRUE(Shows(kGreen, kMiddleX, kMiddleY));
    Key(VK_RIGHT);
    ASSERT_TRUE(HasTitle(L"snap0010.bmp"));
    EXPECT_TRUE(Shows(RGB(0xC8, 0, 0), kMiddleX, kMiddleY));
    Key(VK_RIGHT);  // there is no more
    Key(VK_LEFT);
    ASSERT_TRUE(HasTitle(L"snap0002.bmp"));
    Click(20, 300);  // the button that leads back
    ASSERT_TRUE(HasTitle(L"snap0001.jpg"));
    EXPECT_TRUE(Shows(kPaper, kMiddleX, 40));
    EXPECT_TRUE(Ends());
}

TEST_F(ViewerProgram, WithoutAnArgumentTheNewestPictureIsShown) {
    Picture(L"b.bmp", Bmp(4, 4, 0));
    Picture(L"a.bmp", Bmp(4, 4, kGreen));
    Picture(L"notes.txt", "newest, but no picture");
    StartViewer(L"");
    ASSERT_TRUE(HasTitle(L"a.bmp"));
    EXPECT_TRUE(Shows(kGreen, kMiddleX, kMiddleY));
    EXPECT_TRUE(Ends());
}

TEST_F(ViewerProgram, AnEmptyStoreIsToldInTheUsersLanguage) {
    SetEnvironmentVariableW(L"HANDHELD_LCID", L"1031");
    StartViewer(L"");
    ASSERT_TRUE(HasTitle(L"Bilder"));
    for (WPARAM key : {VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_SPACE}) Key(key);
    EXPECT_TRUE(Ends());
}

TEST_F(ViewerProgram, AMissingPictureKeepsItsPlaceAmongTheOthers) {
    Picture(L"snap0000.bmp", Bmp(4, 4, 0));
    Picture(L"snap0002.bmp", Bmp(4, 4, 0));
    StartViewer(L"\"\\My Documents\\My Pictures\\snap0001.bmp\"");
    ASSERT_TRUE(HasTitle(L"snap0001.bmp"));
    EXPECT_TRUE(Shows(kPaper, kMiddleX, 40));
    Key(VK_RIGHT);
    ASSERT_TRUE(HasTitle(L"snap0002.bmp"));
    EXPECT_TRUE(Ends());
}

TEST_F(ViewerProgram, ZoomsAndPans) {
    // Left half red, right half green: at twice its size, panned to the right, all that is seen is green.
    std::string halves = Bmp(480, 100, 0xC80000);
    for (size_t pixel = 0; pixel < 48000; ++pixel)
        if (pixel % 480 >= 240) halves.replace(54 + pixel * 4, 4, Little(kGreen));
    Picture(L"halves.bmp", halves);
    StartViewer(L"");
    ASSERT_TRUE(HasTitle(L"halves.bmp"));
    EXPECT_TRUE(Shows(RGB(0xC8, 0, 0), 60, kMiddleY));
    EXPECT_TRUE(Shows(kGreen, 180, kMiddleY));
    Key(VK_SPACE);
    for (int i = 0; i < 3; ++i) {
        PostMessageW(Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(200, kMiddleY));
        PostMessageW(Window(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(10, kMiddleY));
        PostMessageW(Window(), WM_LBUTTONUP, 0, MAKELPARAM(10, kMiddleY));
    }
    EXPECT_TRUE(Shows(kGreen, 5, kMiddleY));
    Key(VK_SPACE);
    EXPECT_TRUE(Shows(RGB(0xC8, 0, 0), 60, kMiddleY));
    EXPECT_TRUE(Ends());
}

TEST_F(ViewerProgram, PlaysAMovieToItsEnd) {
    std::string movi;
    for (int i = 0; i < 4; ++i)
        movi += Chunk("00dc", CameraFrame(3, i < 3 ? sio::Rgb{220, 0, 0} : sio::Rgb{0, 0, 220}));
    Picture(L"m0001.avi", Avi(List("hdrl", VideoStream(1, 10)) + List("movi", movi)));
    StartViewer(L"\\My Documents\\My Pictures\\m0001.avi");
    ASSERT_TRUE(HasTitle(L"m0001.avi"));
    EXPECT_TRUE(Shows(kBlueFrame, kMiddleX, kMiddleY - 10));
    Key(VK_SPACE);  // once more, and away from it while it plays
    Key(VK_RIGHT);
    EXPECT_TRUE(Ends());
}

TEST_F(ViewerProgram, ATapWithATremblingHandStopsAMovieOnce) {
    std::string movi;
    for (int i = 0; i < 200; ++i) movi += Chunk("00dc", CameraFrame(3, {220, 0, 0}));
    Picture(L"m0001.avi", Avi(List("hdrl", VideoStream(1, 10)) + List("movi", movi)));
    StartViewer(L"");
    ASSERT_TRUE(HasTitle(L"m0001.avi"));
    const RECT bars = {0, 262, 240, 320};
    const uint32_t playing = LookOf(bars);
    ASSERT_TRUE(LooksOtherThan(playing, bars));  // the progress bar moves
    PostMessageW(Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(kMiddleX, kMiddleY));
    for (int i = 0; i < 3; ++i)
        PostMessageW(Window(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(kMiddleX + i, kMiddleY));
    PostMessageW(Window(), WM_LBUTTONUP, 0, MAKELPARAM(kMiddleX, kMiddleY));
    Sleep(1000);  // long enough for many frames, were it still playing
    const uint32_t stopped = LookOf(bars);
    Sleep(1000);
    EXPECT_EQ(stopped, LookOf(bars));
    Click(180, 273);  // the progress bar, near its end
    EXPECT_TRUE(LooksOtherThan(stopped, bars));
    EXPECT_TRUE(Ends());
}

TEST_F(ViewerProgram, HostileArgumentsAreNoHarm) {
    for (const wchar_t* arguments :
         {L"\\", L"\"", L"\\My Documents\\My Pictures\\", L"\\nul", L"a:b:c.avi", L"*.jpg", L"\\\\"}) {
        StartViewer(arguments);
        EXPECT_TRUE(Ends()) << arguments;
    }
    StartViewer(L"\\" + std::wstring(5000, L'x') + L".jpg");
    EXPECT_TRUE(Ends());
}

}  // namespace
}  // namespace viewer
