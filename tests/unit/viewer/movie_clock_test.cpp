#include "handheld/korvoimgview/movie_clock.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

constexpr uint64_t kSecond = 1'000'000;

TEST(MovieClock, RunsOnlyWhilePlaying) {
    CMovieClock clock(10 * kSecond);
    EXPECT_EQ(0u, clock.Position(5 * kSecond));
    EXPECT_FALSE(clock.Playing(5 * kSecond));
    clock.Play(5 * kSecond);
    EXPECT_TRUE(clock.Playing(6 * kSecond));
    EXPECT_EQ(kSecond, clock.Position(6 * kSecond));
    clock.Pause(7 * kSecond);
    EXPECT_EQ(2 * kSecond, clock.Position(60 * kSecond));
    clock.Play(60 * kSecond);
    EXPECT_EQ(3 * kSecond, clock.Position(61 * kSecond));
}

TEST(MovieClock, StopsAtTheEndAndStartsAgainFromThere) {
    CMovieClock clock(10 * kSecond);
    clock.Play(0);
    EXPECT_EQ(10 * kSecond, clock.Position(99 * kSecond));
    EXPECT_TRUE(clock.AtEnd(99 * kSecond));
    EXPECT_FALSE(clock.Playing(99 * kSecond));
    clock.Play(100 * kSecond);
    EXPECT_EQ(kSecond, clock.Position(101 * kSecond));
}

TEST(MovieClock, MovesWithoutStoppingOrStarting) {
    CMovieClock clock(10 * kSecond);
    clock.MoveTo(4 * kSecond, 0);
    EXPECT_EQ(4 * kSecond, clock.Position(3 * kSecond));
    clock.Play(3 * kSecond);
    clock.MoveTo(6 * kSecond, 5 * kSecond);
    EXPECT_EQ(7 * kSecond, clock.Position(6 * kSecond));
    clock.MoveTo(99 * kSecond, 7 * kSecond);
    EXPECT_TRUE(clock.AtEnd(7 * kSecond));
}

TEST(MovieClock, FramesByTheirTime) {
    AviMovie movie;
    movie.microsecondsPerFrame = 125'000;
    movie.frames.resize(8);
    EXPECT_EQ(0u, FrameAt(movie, 124'999));
    EXPECT_EQ(1u, FrameAt(movie, 125'000));
    EXPECT_EQ(7u, FrameAt(movie, movie.Microseconds()));
}

TEST(MovieClock, SoundStartsOnAWholeSample) {
    const PcmFormat mono = {1, 16, 8000}, stereo = {2, 16, 44100};
    EXPECT_EQ(0u, SoundAt(mono, 124));
    EXPECT_EQ(2u, SoundAt(mono, 125));
    EXPECT_EQ(16000u, SoundAt(mono, kSecond));
    EXPECT_EQ(0u, SoundAt(stereo, 777'777) % 4);
    EXPECT_EQ(uint64_t{3600} * 44100 * 4, SoundAt(stereo, 3600 * kSecond));
}

TEST(MovieClock, TimeIsWrittenInMinutesAndSeconds) {
    EXPECT_EQ(L"0:00", TimeText(999'999));
    EXPECT_EQ(L"0:09", TimeText(9 * kSecond));
    EXPECT_EQ(L"1:05", TimeText(65 * kSecond));
    EXPECT_EQ(L"61:40", TimeText(3700 * kSecond));
}

}  // namespace
}  // namespace viewer
