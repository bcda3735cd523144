#include "liveview/movie_feed.h"

#include <gtest/gtest.h>

#include <vector>

#include "fakes/store_fake.h"

namespace {

class MovieFeed : public testing::Test {
  protected:
    FeedResult Feed(uint32_t bytes = 4096) {
        const std::vector<uint8_t> frame(bytes, 0x42);
        StoreRoom room;
        return FeedMovie(recording, room, settings, screen, frame.data(), bytes);
    }
    void Record() {
        screen.mode = CaptureMode::video;
        recording.recording = true;
        recording.movieQueue = &queue;
    }

    StoreFake& store = ResetStoreFake();
    CameraSettings settings;
    ScreenState screen;
    RecordingState recording;
    ChunkQueue queue;
};

TEST_F(MovieFeed, QueuesTheWholeFrameWhileRecording) {
    Record();
    EXPECT_EQ(Feed(), FeedResult::queued);
    const Chunk* const chunk = queue.Head();
    ASSERT_NE(chunk, nullptr);
    EXPECT_EQ(chunk->size, 4096u);
    EXPECT_EQ(chunk->tag, ChunkTag::video);
}

TEST_F(MovieFeed, NothingWithoutAMovieOrInStillMode) {
    EXPECT_EQ(Feed(), FeedResult::nothing);
    Record();
    screen.mode = CaptureMode::still;
    EXPECT_EQ(Feed(), FeedResult::nothing);
    EXPECT_EQ(queue.Head(), nullptr);
}

TEST_F(MovieFeed, TinyLargeFramesAreLeftOut) {
    Record();
    settings.aviResolution = 0;
    EXPECT_EQ(Feed(2047), FeedResult::nothing);
    EXPECT_EQ(Feed(2048), FeedResult::queued);
    settings.aviResolution = 1;
    EXPECT_EQ(Feed(300), FeedResult::queued);
}

TEST_F(MovieFeed, AWriterFailureIsReportedOnceAndClosesTheFeed) {
    Record();
    recording.writerAborted = 1;
    EXPECT_EQ(Feed(), FeedResult::stopRequested);
    EXPECT_EQ(Feed(), FeedResult::nothing);
    EXPECT_EQ(queue.Head(), nullptr);
    recording.writerAborted = 0;
    EXPECT_EQ(Feed(), FeedResult::queued);
}

TEST_F(MovieFeed, AFullStoreAsksForAStop) {
    Record();
    recording.recording = false;
    store.freeBytes = 0x400001;
    EXPECT_EQ(Feed(), FeedResult::stopRequested);
    EXPECT_TRUE(recording.recording);
    EXPECT_EQ(queue.Head(), nullptr);
}

TEST_F(MovieFeed, AFailedQueueCallIsCounted) {
    Record();
    settings.aviResolution = 1;
    StoreRoom room;
    EXPECT_EQ(FeedMovie(recording, room, settings, screen, nullptr, 300), FeedResult::nothing);
    EXPECT_EQ(recording.writerAborted, 1u);
}

}  // namespace
