#include "capture/store_space.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "fakes/store_fake.h"

namespace {

constexpr uint32_t kMiB = 1u << 20;

class StoreSpace : public testing::Test {
  protected:
    StoreFake& store = ResetStoreFake();
    CameraSettings settings;
    ScreenState screen;
};

TEST_F(StoreSpace, EstimatesFollowResolutionZoomAndSelector) {
    const uint32_t unzoomed[] = {80, 75, 50, 16};
    for (int32_t i = 0; i < 4; ++i) {
        settings.resolution = i;
        EXPECT_EQ(PictureEstimate(settings, screen), unzoomed[i]);
    }
    for (uint32_t zoom : {1u, 2u}) {
        screen.zoom = zoom;
        screen.zoomedSizeSelector = 2;
        EXPECT_EQ(PictureEstimate(settings, screen), 45u);
        screen.zoomedSizeSelector = 3;
        EXPECT_EQ(PictureEstimate(settings, screen), 16u);
    }
}

TEST_F(StoreSpace, TenMebibytesHoldFiftyOneLargePictures) {
    settings.resolution = 0;
    settings.imageQuality = 1;
    EXPECT_EQ(PicturesIn(10 * kMiB, settings, screen), 51u);
}

TEST_F(StoreSpace, TwoMebibytesAreKeptBack) {
    EXPECT_EQ(PicturesIn(2 * kMiB, settings, screen), 0u);
    EXPECT_EQ(PicturesIn(2 * kMiB + 1, settings, screen), 0u);
    settings.resolution = 3;
    settings.imageQuality = 0;
    EXPECT_EQ(PicturesIn(2 * kMiB + 16 * 1024 - 1, settings, screen), 0u);
    EXPECT_EQ(PicturesIn(2 * kMiB + 16 * 1024, settings, screen), 1u);
}

TEST_F(StoreSpace, SizesOutsideTheTableFitNothing) {
    settings.resolution = 4;
    EXPECT_EQ(PicturesIn(64 * kMiB, settings, screen), 0u);
    settings.resolution = -1;
    EXPECT_EQ(PicturesIn(64 * kMiB, settings, screen), 0u);
    screen.zoom = 1;
    screen.zoomedSizeSelector = 7;
    EXPECT_EQ(PicturesIn(64 * kMiB, settings, screen), 0u);
}

TEST_F(StoreSpace, WildQualitiesStayDefined) {
    for (int32_t quality : {-100000, INT32_MIN}) {
        settings.imageQuality = quality;
        EXPECT_EQ(PicturesIn(64 * kMiB, settings, screen), UINT32_MAX);
        EXPECT_EQ(PicturesIn(2 * kMiB, settings, screen), 0u);
    }
    for (int32_t quality : {22, 32, 64, 100000, INT32_MAX}) {
        settings.imageQuality = quality;
        EXPECT_EQ(PicturesIn(UINT32_MAX, settings, screen), 0u) << quality;
    }
}

TEST_F(StoreSpace, QualitiesBelowZeroHalveThePicture) {
    settings.resolution = 3;
    settings.imageQuality = -1;
    EXPECT_EQ(PicturesIn(2 * kMiB + 16 * 1024, settings, screen), 2u);
    settings.imageQuality = -14;
    EXPECT_EQ(PicturesIn(2 * kMiB + 7, settings, screen), 7u);
    settings.imageQuality = -45;
    EXPECT_EQ(PicturesIn(2 * kMiB + 1, settings, screen), 1u << 31);
    settings.imageQuality = -46;
    EXPECT_EQ(PicturesIn(2 * kMiB + 1, settings, screen), UINT32_MAX);
}

TEST_F(StoreSpace, AFullWordOfFreeBytesIsCounted) {
    settings.resolution = 0;
    settings.imageQuality = 0;
    EXPECT_EQ(PicturesIn(UINT32_MAX, settings, screen), (UINT32_MAX - 2 * kMiB) / (80 * 1024));
}

TEST_F(StoreSpace, AnUnreadableStoreHoldsNothing) {
    store.readable = false;
    EXPECT_EQ(PicturesLeft(settings, screen), 0u);
    EXPECT_EQ(VideoSecondsLeft(0), 0u);
    store.readable = true;
    EXPECT_GT(PicturesLeft(settings, screen), 0u);
    EXPECT_GT(VideoSecondsLeft(0), 0u);
}

TEST_F(StoreSpace, AnAnswerIsKeptUntilItIsForgotten) {
    StoreRoom room;
    EXPECT_EQ(FreeBytes(room), store.freeBytes);
    const uint32_t first = store.freeBytes--;
    EXPECT_EQ(FreeBytes(room), first);
    EXPECT_EQ(store.questions, 1);
    room.asked = false;
    EXPECT_EQ(FreeBytes(room), store.freeBytes);
    room.asked = false;
    store.readable = false;
    EXPECT_EQ(FreeBytes(room), 0u);
}

TEST_F(StoreSpace, VideoNeedsMoreThanFourMebibytesAndAByte) {
    EXPECT_EQ(VideoSecondsIn(0x400001, 0), 0u);
    EXPECT_EQ(VideoSecondsIn(0x400001, 1), 0u);
    EXPECT_EQ(VideoSecondsIn(4 * kMiB + 28160, 1), 1u);
    EXPECT_EQ(VideoSecondsIn(4 * kMiB + 46934, 0), 1u);
    EXPECT_EQ(VideoSecondsIn(4 * kMiB + 46933, 0), 0u);
}

TEST_F(StoreSpace, VideoProductsWrap) {
    EXPECT_EQ(VideoSecondsIn(200 * kMiB, 1), (200u * kMiB * 20 - 0x5000000u) / 563200);
    EXPECT_EQ(VideoSecondsIn(215 * kMiB, 1), (static_cast<uint32_t>(215ull * kMiB * 20) - 0x5000000u) / 563200);
    EXPECT_LT(VideoSecondsIn(215 * kMiB, 1), VideoSecondsIn(200 * kMiB, 1));
}

TEST_F(StoreSpace, OtherMovieSizesCountAsLarge) {
    EXPECT_EQ(VideoSecondsIn(64 * kMiB, 9), VideoSecondsIn(64 * kMiB, 0));
}

}  // namespace
