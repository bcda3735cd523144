#include "handheld/korvoimgview/movie_player.h"

#include <gtest/gtest.h>

#include "unit/viewer/avi_bytes.h"
#include "unit/viewer/camera_frame.h"

namespace viewer {
namespace {

constexpr sio::Rgb kRed = {220, 0, 0}, kBlue = {0, 0, 220};

// A movie of frames of 100 ms each.
std::vector<uint8_t> Movie(const std::vector<std::string>& frames) {
    std::string movi;
    for (const std::string& frame : frames) movi += Chunk("00dc", frame);
    const std::string file = Avi(List("hdrl", VideoStream(1, 10)) + List("movi", movi));
    return {file.begin(), file.end()};
}

bool Shows(const CMoviePlayer& player, sio::Rgb colour) {
    if (player.Picture().data.empty()) return false;
    const uint32_t pixel = player.Picture().data[0];
    return (pixel >> 16 > 128) == (colour.r > 128) && ((pixel & 0xFF) > 128) == (colour.b > 128);
}

class MoviePlayer : public testing::Test {
  protected:
    CPictureDecoder m_decoder;
    CMoviePlayer m_player{m_decoder};
};

TEST_F(MoviePlayer, ShowsTheFrameOfEveryTime) {
    ASSERT_TRUE(m_player.Open(Movie({CameraFrame(3, kRed), CameraFrame(3, kBlue)})));
    EXPECT_EQ(200'000u, m_player.Length());
    EXPECT_FALSE(m_player.Playing());
    EXPECT_TRUE(Shows(m_player, kRed));
    m_player.MoveTo(150'000);
    EXPECT_TRUE(m_player.Advance());
    EXPECT_TRUE(Shows(m_player, kBlue));
    EXPECT_FALSE(m_player.Advance());
    m_player.MoveTo(0);
    EXPECT_TRUE(m_player.Advance());
    EXPECT_TRUE(Shows(m_player, kRed));
}

TEST_F(MoviePlayer, PlaysToTheEndAndStops) {
    ASSERT_TRUE(m_player.Open(Movie({CameraFrame(3, kRed), CameraFrame(3, kBlue)})));
    m_player.Play();
    EXPECT_TRUE(m_player.Playing());
    const ULONGLONG limit = GetTickCount64() + 10'000;
    while (m_player.Playing() && GetTickCount64() < limit) Sleep(5);
    EXPECT_FALSE(m_player.Playing());
    EXPECT_EQ(m_player.Length(), m_player.Position());
    m_player.Advance();
    EXPECT_TRUE(Shows(m_player, kBlue));
}

TEST_F(MoviePlayer, DamagedFramesKeepThePictureBefore) {
    ASSERT_TRUE(m_player.Open(Movie({CameraFrame(1, kRed), "damaged", "", CameraFrame(1, kBlue)})));
    m_player.MoveTo(150'000);
    m_player.Advance();
    EXPECT_TRUE(Shows(m_player, kRed));
    m_player.MoveTo(350'000);
    m_player.Advance();
    EXPECT_TRUE(Shows(m_player, kBlue));
}

TEST_F(MoviePlayer, BeginsWithTheFirstGoodFrame) {
    ASSERT_TRUE(m_player.Open(Movie({"damaged", CameraFrame(2, kBlue)})));
    EXPECT_TRUE(Shows(m_player, kBlue));
}

TEST_F(MoviePlayer, RefusesMoviesWithoutAGoodFrame) {
    EXPECT_FALSE(m_player.Open(Movie({"damaged", "damaged too"})));
    EXPECT_FALSE(m_player.Open(Movie({})));
    EXPECT_FALSE(m_player.Open({}));
}

}  // namespace
}  // namespace viewer
