#include "handheld/korvoimgview/picture_decoder.h"

#include <gtest/gtest.h>

#include "handheld/korvoimgview/movie_frame.h"
#include "unit/viewer/camera_frame.h"
#include "unit/viewer/store_fixture.h"

namespace viewer {
namespace {

std::vector<uint8_t> Bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

TEST(PictureDecoder, PixelsOfAPlainPicture) {
    CPictureDecoder decoder;
    Pixels pixels;
    ASSERT_EQ(DecodeResult::ok, decoder.Decode(Bytes(Bmp(5, 3, 0x123456)), pixels));
    EXPECT_EQ(5, pixels.width);
    EXPECT_EQ(3, pixels.height);
    for (uint32_t pixel : pixels.data) EXPECT_EQ(0x123456u, pixel);
}

TEST(PictureDecoder, DamagedFilesLeaveThePixelsAlone) {
    CPictureDecoder decoder;
    Pixels pixels;
    pixels.Allocate(1, 1);
    const std::string whole = Bmp(5, 3, 0);
    for (const std::string& damaged : {std::string(), std::string("no picture"), std::string("\xFF\xD8\xFF"),
                                       std::string(5000, '\xFF'), whole.substr(0, 40)})
        EXPECT_EQ(DecodeResult::damaged, decoder.Decode(Bytes(damaged), pixels));
    EXPECT_EQ(1, pixels.width);
}

TEST(PictureDecoder, EnormousPicturesAreRefusedBeforeTheyAreDecoded) {
    CPictureDecoder decoder;
    Pixels pixels;
    std::string file = Bmp(1, 1, 0);
    file.replace(18, 8, "\x60\xEA\0\0\x60\xEA\0\0", 8);  // 60,000 x 60,000
    EXPECT_NE(DecodeResult::ok, decoder.Decode(Bytes(file), pixels));
    EXPECT_TRUE(pixels.data.empty());
}

TEST(PictureDecoder, FramesOfTheCamera) {
    CPictureDecoder decoder;
    for (int header = 1; header <= 3; ++header) {
        const std::string frame = CameraFrame(header, {200, 60, 20});
        const auto file = CompleteFrame(reinterpret_cast<const uint8_t*>(frame.data()), frame.size());
        Pixels pixels;
        ASSERT_EQ(DecodeResult::ok, decoder.Decode(file, pixels)) << header;
        EXPECT_EQ(header == 3 ? 160 : 320, pixels.width);
        for (uint32_t pixel : pixels.data) {
            ASSERT_NEAR(200, static_cast<int>(pixel >> 16), 4);
            ASSERT_NEAR(60, static_cast<int>(pixel >> 8 & 0xFF), 4);
            ASSERT_NEAR(20, static_cast<int>(pixel & 0xFF), 4);
        }
    }
}

}  // namespace
}  // namespace viewer
