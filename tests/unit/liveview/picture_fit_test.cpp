#include "liveview/picture_fit.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<uint8_t> Ramp(int width, int height) {
    std::vector<uint8_t> pixels(RowBytes(width) * height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (int c = 0; c < 3; ++c) pixels[y * RowBytes(width) + x * 3 + c] = static_cast<uint8_t>(x + 10 * c);
    return pixels;
}

TEST(PictureFit, TheSameSizeIsACopy) {
    const std::vector<uint8_t> from = Ramp(160, 120);
    std::vector<uint8_t> to(from.size());
    FitPicture({from.data(), 160, 120}, {nullptr, 160, 120}, to.data());
    EXPECT_EQ(from, to);
}

TEST(PictureFit, FlatStaysFlatInBothDirections) {
    const std::vector<uint8_t> from(RowBytes(240) * 180, 201);
    std::vector<uint8_t> to(RowBytes(240) * 180, 0);
    FitPicture({from.data(), 240, 180}, {nullptr, 160, 120}, to.data());
    for (int i = 0; i < RowBytes(160) * 120; ++i) ASSERT_EQ(to[i], 201);
    FitPicture({from.data(), 160, 120}, {nullptr, 240, 180}, to.data());
    for (const uint8_t value : to) ASSERT_EQ(value, 201);
}

TEST(PictureFit, ARampKeepsItsSlope) {
    const std::vector<uint8_t> from = Ramp(160, 120);
    std::vector<uint8_t> to(RowBytes(240) * 180);
    FitPicture({from.data(), 160, 120}, {nullptr, 240, 180}, to.data());
    for (int x = 1; x < 239; ++x) {
        const int expected = (2 * x + 1) * 160 / 480;  // half a source pixel further left
        EXPECT_NEAR(to[90 * RowBytes(240) + x * 3], expected, 1);
    }
}

// Columns of black and white in turn: taking the nearest pixel would leave nothing but these two.
TEST(PictureFit, IsSmoothInBothDirections) {
    const struct {
        int fromWidth, fromHeight, toWidth, toHeight;
    } rows[] = {{160, 120, 240, 180}, {240, 180, 160, 120}};
    for (const auto& row : rows) {
        std::vector<uint8_t> from(RowBytes(row.fromWidth) * row.fromHeight);
        for (int y = 0; y < row.fromHeight; ++y)
            for (int x = 0; x < row.fromWidth; ++x)
                for (int c = 0; c < 3; ++c) from[y * RowBytes(row.fromWidth) + x * 3 + c] = x % 2 != 0 ? 255 : 0;
        std::vector<uint8_t> to(RowBytes(row.toWidth) * row.toHeight);
        FitPicture({from.data(), row.fromWidth, row.fromHeight}, {nullptr, row.toWidth, row.toHeight}, to.data());
        int between = 0;
        for (int x = 0; x < row.toWidth; ++x) between += to[x * 3] > 30 && to[x * 3] < 225;
        EXPECT_GE(between, row.toWidth / 2) << row.toWidth;
    }
}

TEST(PictureFit, OnePixelFillsEverything) {
    const uint8_t from[4] = {1, 2, 3, 0};
    std::vector<uint8_t> to(RowBytes(5) * 4);
    FitPicture({from, 1, 1}, {nullptr, 5, 4}, to.data());
    EXPECT_EQ(to[3 * RowBytes(5) + 4 * 3 + 2], 3);
}

}  // namespace
