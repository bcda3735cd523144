#include "liveview/frame_arrival.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "device/preview_mode.h"
#include "fakes/store_fake.h"
#include "support/camera_records.h"

namespace {

// A 160x120 grey frame: per block a DC code of size 0 and an end of block.
std::vector<uint8_t> GreyScan() {
    std::string bits;
    for (int mcu = 0; mcu < 20 * 15; ++mcu) bits += "00" "1010" "00" "00" "00" "00";
    while (bits.size() % 8 != 0) bits += '1';
    std::vector<uint8_t> bytes;
    for (size_t i = 0; i < bits.size(); i += 8)
        bytes.push_back(static_cast<uint8_t>(std::stoi(bits.substr(i, 8), nullptr, 2)));
    bytes.push_back(0xFF);
    bytes.push_back(0xD9);
    return bytes;
}

class FrameArrival : public CameraRecords {
  protected:
    void SetUp() override {
        settings.aviResolution = 1;
        SelectPreviewHeader(*frame, screen.scaleCode, 1, 0);
        std::memset(image->pixels, 0x11, sizeof(image->pixels));
        std::memset(device.feedback, 0x22, sizeof(device.feedback));
        driver.frame = GreyScan();
    }
    FrameOutcome Receive() { return ReceiveFrame(view); }

    StoreFake& store = ResetStoreFake();
    std::unique_ptr<FrameBuffer> frame = std::make_unique<FrameBuffer>();
    RecordingState recording;
    LiveView view{settings, profile, screen, device, *frame, *decoder, *image, recording};
};

TEST_F(FrameArrival, AGoodFrameIsDecodedAndShown) {
    EXPECT_TRUE(Receive().repaint);
    EXPECT_EQ(image->pixels[0], 128);
    EXPECT_EQ(image->pixels[160 * 120 * 3 - 1], 128);
    EXPECT_EQ(image->pixels[160 * 120 * 3], 0x11);
}

TEST_F(FrameArrival, FeedbackIsTheStatisticsOfTheLastDecode) {
    Receive();
    EXPECT_EQ(driver.lastInputBytes, (std::vector<uint8_t>{0x22, 0x22, 0x22, 0x22}));
    Receive();
    EXPECT_EQ(driver.lastInputBytes, (std::vector<uint8_t>{0, 0, 0, 0}));
}

TEST_F(FrameArrival, AnUndecodableFrameKeepsThePictureAndClearsTheFeedback) {
    driver.frame.assign(100, 0xFF);
    EXPECT_FALSE(Receive().repaint);
    EXPECT_EQ(device.feedback[3], 0);
}

TEST_F(FrameArrival, EmptyAndOverlongFramesAreDroppedWithTheFeedbackKept) {
    driver.reportedLength = 0;
    EXPECT_FALSE(Receive().repaint);
    driver.reportedLength = 76210;
    EXPECT_FALSE(Receive().repaint);
    EXPECT_EQ(device.feedback[0], 0x22);
}

TEST_F(FrameArrival, TheLongestFrameIsDecoded) {
    driver.reportedLength = 76209;
    EXPECT_TRUE(Receive().repaint);
}

TEST_F(FrameArrival, ReviewDrainsFramesAndKeepsThePicture) {
    screen.reviewShowing = true;
    EXPECT_TRUE(Receive().repaint);
    EXPECT_EQ(image->pixels[0], 0x11);
    EXPECT_EQ(driver.calls.back(), "control 80000013 in=4");
    settings.instantReview = 0;
    Receive();
    EXPECT_EQ(image->pixels[0], 128);
}

TEST_F(FrameArrival, TheReviewPictureKeepsItsModeThoughTheSizeChanges) {
    Receive();
    EXPECT_EQ(image->mode, kScaleSmall);
    screen.reviewShowing = true;
    screen.scaleCode = kScaleLarge;
    Receive();
    EXPECT_EQ(image->mode, kScaleSmall);
}

TEST_F(FrameArrival, TheStoreIsAskedOnceForEachRecordedFrame) {
    ChunkQueue queue;
    screen.mode = CaptureMode::video;
    recording.recording = true;
    recording.movieQueue = &queue;
    for (int frames = 1; frames <= 3; ++frames) {
        store.freeBytes = 64u * 1024 * 1024 - static_cast<uint32_t>(frames);
        Receive();
        EXPECT_EQ(FreeBytes(view.room), store.freeBytes);  // the paint that follows
        EXPECT_EQ(store.questions, frames);
    }
}

TEST_F(FrameArrival, AFailedWriterEndsTheRecording) {
    recording.writerAborted = 1;
    EXPECT_TRUE(Receive().stopRecording);
    EXPECT_FALSE(Receive().stopRecording);
}

}  // namespace
