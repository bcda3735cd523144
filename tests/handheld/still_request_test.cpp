// A still picture from the shutter to the file: the image's own code, down to the 220 bytes that the card is
// given.
#include "capture/still_capture.h"

#include <gtest/gtest.h>

#include <cstring>

#include "capture/review.h"
#include "fakes/store_fake.h"
#include "handheld/doubles/card.h"
#include "handheld/doubles/object_store.h"
#include "handheld/doubles/registry.h"
#include "handheld/doubles/system.h"
#include "handheld/loader/image.h"
#include "settings/load_settings.h"
#include "support/decode_run.h"
#include "support/picture_encoder.h"
#include "support/still_fixture.h"

namespace {

using Calls = std::vector<std::string>;

class StillRequestTest : public StillFixture {
  protected:
    void SetUp() override {
        ResetStoreFake();
        LoadSettings(settings, profile);
        settings.instantReview = 0;
    }
    std::string PathInRequest() const {
        std::string path;
        for (size_t at = 2; at < 204 && TheCard().stillRequest[at] != 0; at += 2)
            path += static_cast<char>(TheCard().stillRequest[at]);
        return path;
    }
    int32_t StoredNumber() const {
        const RegistryValue* const value = FindRegistryValue(L"Software\\Zel\\Setting", L"jpgno");
        int32_t number = -1;
        if (value != nullptr && value->bytes.size() == sizeof number)
            std::memcpy(&number, value->bytes.data(), sizeof number);
        return number;
    }
};

TEST_F(StillRequestTest, EveryByteOfTheRequestIsAsTheDriverReadsIt) {
    settings.imageQuality = 2;
    settings.filenamePrefix = L"trip";
    settings.jpgNo = 7;
    EXPECT_EQ(Take(), 0u);
    std::vector<uint8_t> expected = {1, 2};
    for (const char character : std::string("\\My Documents\\My Pictures\\trip0007.jpg")) {
        expected.push_back(static_cast<uint8_t>(character));
        expected.push_back(0);
    }
    expected.resize(216);
    const uint32_t module = TheImage().base;
    for (uint32_t shift = 0; shift < 32; shift += 8)
        expected.push_back(static_cast<uint8_t>(module >> shift));
    EXPECT_EQ(TheCard().stillRequest, expected);
}

TEST_F(StillRequestTest, ThePreviewStopsAndComesBackAroundIt) {
    settings.aviResolution = 0;
    Take();
    EXPECT_EQ(driver.calls, (Calls{"control 80000017 in=0", "control 80000007 in=220",
                                   "control 8000000F in=4", "pause 25"}));
}

TEST_F(StillRequestTest, TheNextNumberIsStoredAndNamesTheNextPicture) {
    TheCard().picture = {0xFF, 0xD8};
    for (int32_t number = 1; number <= 3; ++number) {
        Take();
        EXPECT_EQ(PathInRequest(), "\\My Documents\\My Pictures\\snap000" + std::to_string(number) + ".jpg");
        EXPECT_EQ(StoredNumber(), number + 1);
    }
    EXPECT_EQ(StoredFiles().size(), 3u);
    EXPECT_EQ(screen.picturesTaken, 3u);
}

TEST_F(StillRequestTest, NumberNineThousand999IsFollowedByOne) {
    settings.jpgNo = 9999;
    Take();
    EXPECT_EQ(PathInRequest(), "\\My Documents\\My Pictures\\snap9999.jpg");
    EXPECT_EQ(StoredNumber(), 1);
}

TEST_F(StillRequestTest, ZoomAndResolutionChooseTheMode) {
    const struct {
        uint32_t zoom, selector;
        int32_t resolution;
        uint8_t mode;
    } rows[] = {{0, 2, 0, 0}, {0, 2, 1, 1}, {0, 2, 2, 2}, {0, 2, 3, 4},
                {1, 2, 0, 7}, {1, 3, 0, 8}, {2, 2, 0, 17}};
    for (const auto& row : rows) {
        screen.zoom = row.zoom;
        screen.zoomedSizeSelector = row.selector;
        settings.resolution = row.resolution;
        Take();
        EXPECT_EQ(TheCard().stillRequest[0], row.mode);
    }
}

TEST_F(StillRequestTest, SilentMoviesMeanASilentShutter) {
    settings.recordWithAudio = 0;
    Take();
    for (size_t at = 204; at < 220; ++at) EXPECT_EQ(TheCard().stillRequest[at], 0);
}

TEST_F(StillRequestTest, WithoutRoomOrCardNothingIsAsked) {
    ResetStoreFake().freeBytes = 2097152 + 2 * 75 * 1024 * 2 - 1;
    EXPECT_EQ(Take(), 0u);
    EXPECT_EQ(Press(0), ShutterResult::noSpace);
    ResetStoreFake().readable = false;
    EXPECT_EQ(Take(), 0u);
    ResetStoreFake();
    device.handle = kNoDriver;
    EXPECT_EQ(Take(), 1u);
    EXPECT_TRUE(driver.calls.empty());
    EXPECT_EQ(StoredNumber(), -1);
}

TEST_F(StillRequestTest, APathThatDoesNotFitIsNotSent) {
    settings.filenamePrefix.assign(66, L'p');  // 26 of the folder, 8 of number and ending
    Take();
    EXPECT_EQ(PathInRequest().size(), 100u);
    driver.calls.clear();
    settings.filenamePrefix += L'p';
    Take();
    EXPECT_TRUE(driver.calls.empty());
}

TEST_F(StillRequestTest, ThePictureIsReviewedAsLongAsTheSettingSays) {
    TheCard().picture = encodePicture(makePicture(640, 480, 5), {Sampling::k420, 9, 0});
    settings.instantReview = 2;
    TheSystem().ticks = UINT32_MAX - 1000;  // the count wraps during the review
    Take();
    EXPECT_TRUE(screen.reviewShowing);
    EXPECT_TRUE(review->ready);
    const Bytes expected = runDecode(screen.scaleCode, TheCard().picture).picture;
    EXPECT_GT(expected.size(), 0u);
    EXPECT_EQ(std::memcmp(image->pixels, expected.data(), expected.size()), 0);
    EXPECT_EQ(Press(0), ShutterResult::ignored);

    EXPECT_EQ(TheSystem().threads.size(), 1u);
    const uint32_t start = TheSystem().ticks;
    const StartedThread thread = TheSystem().threads[0];
    thread.body(thread.argument);
    EXPECT_FALSE(screen.reviewShowing);
    EXPECT_EQ(TheSystem().ticks - start, 4020u);  // the first step of 20 beyond 4000
}

TEST_F(StillRequestTest, DeletingTakesTheNumberBackAndTheFileAway) {
    TheCard().picture = {0xFF, 0xD8};
    Take();
    DeleteLastPicture(settings, profile, screen);
    EXPECT_TRUE(StoredFiles().empty());
    EXPECT_EQ(StoredNumber(), 1);
    EXPECT_EQ(screen.picturesTaken, 0u);
}

TEST_F(StillRequestTest, TheShutterStartsTheSelfTimer) {
    for (const uint32_t digit : {2u, 10u}) {
        settings.selfTimer = digit == 2 ? 1 : 2;
        EXPECT_EQ(Press(1234), ShutterResult::countdownStarted);
        EXPECT_EQ(screen.countdownDigit, digit);
        EXPECT_EQ(screen.countdownStart, 1234u);
    }
    EXPECT_TRUE(driver.calls.empty());
    settings.selfTimer = 0;
    EXPECT_EQ(Press(0), ShutterResult::taken);
    EXPECT_EQ(StoredNumber(), 2);
}

}  // namespace
