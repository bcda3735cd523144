#include "handheld/korvoimgview/resample.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace viewer {
namespace {

constexpr uint32_t kBackground = 0x010203;

Pixels Plain(int width, int height, uint32_t colour) {
    Pixels pixels;
    pixels.Allocate(width, height);
    for (uint32_t& pixel : pixels.data) pixel = colour;
    return pixels;
}

Pixels Drawn(const Pixels& picture, const View& view, int width, int height) {
    Pixels area;
    area.Allocate(width, height);
    DrawView(picture, view, kBackground, area);
    return area;
}

TEST(Resample, OwnSizeIsExactAndCutAtTheArea) {
    Pixels picture;
    picture.Allocate(7, 5);
    for (size_t i = 0; i < picture.data.size(); ++i) picture.data[i] = static_cast<uint32_t>(i * 0x030507);
    const Pixels area = Drawn(picture, {kWhole, -2, 1}, 4, 8);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 4; ++x) {
            const bool inside = y >= 1 && y < 6;
            EXPECT_EQ(inside ? picture.Row(y - 1)[x + 2] : kBackground, area.Row(y)[x]) << x << ' ' << y;
        }
}

TEST(Resample, PlainSurfacesKeepTheirColourAtEveryScale) {
    const Pixels picture = Plain(37, 23, 0xFF8001);
    for (uint32_t scale = kWhole / 30; scale < 4 * kWhole; scale += 4099) {
        const Size size = ScaledSize({37, 23}, scale);
        const Pixels area = Drawn(picture, {scale, 0, 0}, size.width, size.height);
        for (uint32_t pixel : area.data) ASSERT_EQ(0xFF8001u, pixel) << scale;
    }
}

TEST(Resample, ShrinkingAveragesAFineChequer) {
    Pixels picture = Plain(64, 64, 0);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x) picture.Row(y)[x] = (x + y) % 2 ? 0xFFFFFF : 0;
    const Pixels area = Drawn(picture, {kWhole / 8, 0, 0}, 8, 8);
    for (uint32_t pixel : area.data) EXPECT_NEAR(128, static_cast<int>(pixel & 0xFF), 2);
}

TEST(Resample, EnlargingBlendsBetweenNeighbours) {
    Pixels picture = Plain(2, 1, 0);
    picture.data[1] = 0xC8C8C8;
    const Pixels area = Drawn(picture, {4 * kWhole, 0, 0}, 8, 4);
    for (int x = 1; x < 8; ++x) EXPECT_GE(area.Row(0)[x], area.Row(0)[x - 1]);
    EXPECT_EQ(0u, area.Row(0)[0]);
    EXPECT_EQ(0xC8C8C8u, area.Row(0)[7]);
    EXPECT_NEAR(100, static_cast<int>(area.Row(0)[3] & 0xFF), 26);
    EXPECT_NEAR(100, static_cast<int>(area.Row(0)[4] & 0xFF), 26);
}

TEST(Resample, AnExtremeShapeIsDrawn) {
    const Pixels picture = Plain(20000, 1, 0x123456);
    const View view = FitView({20000, 1}, {240, 260});
    const Pixels area = Drawn(picture, view, 240, 260);
    EXPECT_EQ(0x123456u, area.Row(129)[120]);
    EXPECT_EQ(kBackground, area.Row(128)[120]);
}

TEST(Resample, NothingIsDrawnOfAnEmptyPictureOrOutsideTheArea) {
    EXPECT_EQ(kBackground, Drawn({}, {kWhole, 0, 0}, 3, 3).data[4]);
    EXPECT_EQ(kBackground, Drawn(Plain(2, 2, 7), {kWhole, 50, -50}, 3, 3).data[4]);
}

}  // namespace
}  // namespace viewer
