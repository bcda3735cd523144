#include "handheld/korvoimgview/avi_movie.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "unit/viewer/avi_bytes.h"

namespace viewer {
namespace {

struct Read {
    std::string file;
    AviMovie movie;
    AviResult result;

    // A copy of exactly the file's size, so that one byte too far is seen by the sanitizer.
    explicit Read(const std::string& bytes) : file(bytes) {
        const auto copy = std::make_unique<uint8_t[]>(bytes.size());
        std::copy(bytes.begin(), bytes.end(), copy.get());
        result = ReadAvi(copy.get(), bytes.size(), movie);
        for (const FilePart& part : movie.frames) EXPECT_LE(uint64_t{part.offset} + part.size, bytes.size());
        for (const FilePart& part : movie.soundBlocks)
            EXPECT_LE(uint64_t{part.offset} + part.size, bytes.size());
    }
    std::string Frame(size_t i) const { return file.substr(movie.frames[i].offset, movie.frames[i].size); }
    std::string Sound() const {
        const auto sound = CollectSound(movie, reinterpret_cast<const uint8_t*>(file.data()));
        return {sound.begin(), sound.end()};
    }
};

const std::string kHeader =
    List("hdrl", MainHeader(40'000) + VideoStream(1'000'000, 8'000'000) + SoundStream());
const std::string kMovi = Chunk("00dc", "first") + Chunk("01wb", "abcd") + Chunk("00dc", "") +
                          Chunk("01wb", "ef") + Chunk("00dc", "last!!");

TEST(AviMovie, FindsFramesSoundAndRate) {
    const Read read(Avi(kHeader + Chunk("JUNK", std::string(99, '\0')) + List("movi", kMovi)));
    ASSERT_EQ(AviResult::ok, read.result);
    ASSERT_EQ(3u, read.movie.frames.size());
    EXPECT_EQ("first", read.Frame(0));
    EXPECT_EQ("", read.Frame(1));
    EXPECT_EQ("last!!", read.Frame(2));
    EXPECT_EQ("abcdef", read.Sound());
    EXPECT_EQ(125'000u, read.movie.microsecondsPerFrame);
    EXPECT_EQ(375'000u, read.movie.Microseconds());
    ASSERT_TRUE(read.movie.sound);
    EXPECT_EQ(8000u, read.movie.sound->samplesPerSecond);
    EXPECT_EQ(16000u, read.movie.sound->BytesPerSecond());
}

TEST(AviMovie, SilentMovie) {
    const Read read(Avi(List("hdrl", MainHeader(0) + VideoStream(1, 10)) + List("movi", Chunk("00dc", "x"))));
    ASSERT_EQ(AviResult::ok, read.result);
    EXPECT_FALSE(read.movie.sound);
    EXPECT_EQ(100'000u, read.movie.microsecondsPerFrame);
}

TEST(AviMovie, RateComesFromTheMainHeaderAndThenFromNowhere) {
    const std::string movi = List("movi", Chunk("00dc", "x"));
    EXPECT_EQ(
        40'000u,
        Read(Avi(List("hdrl", MainHeader(40'000) + VideoStream(1, 0)) + movi)).movie.microsecondsPerFrame);
    EXPECT_EQ(100'000u, Read(Avi(List("hdrl", VideoStream(0, 5)) + movi)).movie.microsecondsPerFrame);
}

TEST(AviMovie, AbsurdRatesAreHeldBack) {
    const std::string movi = List("movi", Chunk("00dc", "x"));
    EXPECT_EQ(10'000'000u,
              Read(Avi(List("hdrl", VideoStream(0xFFFFFFFF, 1)) + movi)).movie.microsecondsPerFrame);
    EXPECT_EQ(1'000u, Read(Avi(List("hdrl", VideoStream(1, 0xFFFFFFFF)) + movi)).movie.microsecondsPerFrame);
}

TEST(AviMovie, StreamNumbersFollowTheHeaderAndAreHexadecimal) {
    std::string header = SoundStream(), movi = Chunk("01dc", "picture");
    EXPECT_EQ("picture", Read(Avi(List("hdrl", header + VideoStream(1, 10)) + List("movi", movi))).Frame(0));
    for (int i = 0; i < 9; ++i) header += SoundStream(2);
    const Read tenth(
        Avi(List("hdrl", header + VideoStream(1, 10)) + List("movi", movi + Chunk("0Adb", "tenth"))));
    ASSERT_EQ(1u, tenth.movie.frames.size());
    EXPECT_EQ("tenth", tenth.Frame(0));
}

TEST(AviMovie, ChunksInListsOfRecords) {
    const Read read(
        Avi(kHeader + List("movi", List("rec ", Chunk("00dc", "a")) + List("rec ", Chunk("00dc", "b")))));
    ASSERT_EQ(2u, read.movie.frames.size());
    EXPECT_EQ("b", read.Frame(1));
}

TEST(AviMovie, RefusesWhatIsNoMovie) {
    EXPECT_EQ(AviResult::notAvi, Read("").result);
    EXPECT_EQ(AviResult::notAvi, Read(std::string(2048, '\0')).result);
    EXPECT_EQ(AviResult::notAvi, Read(Chunk("RIFF", "WAVE")).result);
    EXPECT_EQ(AviResult::noMotionJpeg, Read(Avi("")).result);
    EXPECT_EQ(AviResult::noMotionJpeg,
              Read(Avi(List("hdrl", VideoStream(1, 10, "DIVX")) + List("movi", Chunk("00dc", "x")))).result);
    EXPECT_EQ(AviResult::noMotionJpeg, Read(Avi(List("movi", Chunk("00dc", "x")))).result);
    EXPECT_EQ(AviResult::noFrames, Read(Avi(kHeader)).result);
}

TEST(AviMovie, SoundThatCannotBePlayedIsLeftOut) {
    const uint32_t formats[][4] = {
        {85, 1, 8000, 16}, {1, 3, 8000, 16}, {1, 0, 8000, 16}, {1, 1, 999, 16}, {1, 1, 8000, 24}};
    for (const auto& f : formats) {
        const Read read(Avi(List("hdrl", VideoStream(1, 10) + SoundStream(f[0], f[1], f[2], f[3])) +
                            List("movi", kMovi)));
        EXPECT_EQ(AviResult::ok, read.result);
        EXPECT_FALSE(read.movie.sound);
        EXPECT_TRUE(read.movie.soundBlocks.empty());
    }
}

TEST(AviMovie, AMovieCutShortPlaysAsFarAsItGoes) {
    const std::string whole = Avi(kHeader + List("movi", kMovi));
    size_t frames = 0;
    for (size_t size = 0; size <= whole.size(); ++size) {
        const Read read(whole.substr(0, size));
        EXPECT_GE(read.movie.frames.size(), frames);
        frames = read.movie.frames.size();
        EXPECT_EQ(frames > 0, read.result == AviResult::ok);
    }
    EXPECT_EQ(3u, frames);
}

TEST(AviMovie, ListsNestedWithoutEndAreNotFollowed) {
    std::string nested = Chunk("00dc", "x");
    for (int i = 0; i < 10000; ++i) nested = List("rec ", nested);
    EXPECT_EQ(AviResult::noFrames, Read(Avi(kHeader + List("movi", nested))).result);
}

TEST(AviMovie, DamagedBytesNeverLeadOutOfTheFile) {
    const std::string whole = Avi(kHeader + List("movi", kMovi));
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        std::string damaged = whole;
        for (int n = 0; n < 3; ++n)
            damaged[random() % damaged.size()] = static_cast<char>(random() % 4 ? 0xFF : random());
        Read read(damaged);
    }
}

}  // namespace
}  // namespace viewer
