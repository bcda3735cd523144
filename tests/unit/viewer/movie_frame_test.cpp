#include "handheld/korvoimgview/movie_frame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace viewer {
namespace {

std::string Segment(int marker, const std::string& body) {
    const size_t length = body.size() + 2;
    return std::string{'\xFF', static_cast<char>(marker), static_cast<char>(length >> 8),
                       static_cast<char>(length)} +
           body;
}

std::string Completed(const std::string& frame) {
    const auto file = CompleteFrame(reinterpret_cast<const uint8_t*>(frame.data()), frame.size());
    return {file.begin(), file.end()};
}

const std::string kStart = "\xFF\xD8", kEnd = "\xFF\xD9";
const std::string kQuant = Segment(0xDB, std::string(65, 'q')), kSize = Segment(0xC0, "sizes");
const std::string kScan = Segment(0xDA, "scan") + "data";

int Count(const std::string& text, const std::string& what) {
    int count = 0;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++count;
    return count;
}

TEST(MovieFrame, GetsTablesAndEndButNoStrayByte) {
    const std::string file = Completed(kStart + kQuant + kSize + std::string(1, '\0') + kScan);
    const std::string before = kStart + kQuant + kSize;
    ASSERT_EQ(before, file.substr(0, before.size()));
    // Four tables: 2 with 12 and 2 with 162 symbols, each behind 4 + 1 + 16 bytes.
    EXPECT_EQ(before.size() + 2 * (21 + 12) + 2 * (21 + 162) + kScan.size() + 2, file.size());
    EXPECT_EQ(4, Count(file, "\xFF\xC4"));
    EXPECT_EQ(kScan + kEnd, file.substr(file.size() - kScan.size() - 2));
}

TEST(MovieFrame, AWholeFileStaysAsItIs) {
    const std::string file = kStart + kQuant + Segment(0xC4, "tables") + kSize + kScan + kEnd;
    EXPECT_EQ(file, Completed(file));
}

TEST(MovieFrame, FillBytesBeforeAMarkerAreDropped) {
    const std::string tables = Segment(0xC4, "tables");
    EXPECT_EQ(kStart + tables + kScan + kEnd, Completed(kStart + "\xFF\xFF" + tables + "\xFF" + kScan));
}

TEST(MovieFrame, RefusesWhatHasNoScan) {
    EXPECT_EQ("", Completed(""));
    EXPECT_EQ("", Completed("not a picture"));
    EXPECT_EQ("", Completed(kStart + kQuant + kSize));
    EXPECT_EQ("", Completed(kStart + kQuant.substr(0, 30)));
    EXPECT_EQ("", Completed(kStart + std::string("\xFF\xDB\0\1", 4) + kScan));
}

TEST(MovieFrame, EveryCutIsRefusedOrComplete) {
    const std::string frame = kStart + kQuant + kSize + kScan;
    for (size_t size = 0; size < frame.size(); ++size) {
        const std::string file = Completed(frame.substr(0, size));
        EXPECT_TRUE(file.empty() || file.substr(file.size() - 2) == kEnd) << size;
    }
}

}  // namespace
}  // namespace viewer
