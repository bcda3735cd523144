#include <gtest/gtest.h>

#include <set>

#include "handheld/sio/card/modes.h"
#include "handheld/sio/card/test_card.h"
#include "handheld/sio/scene/scene.h"

using namespace sio;

namespace {

constexpr uint32_t kNoon = kDayMilliseconds / 2;

Picture draw(uint32_t time, const View& view) {
    CScene scene;
    Picture picture;
    scene.draw(time, view, picture);
    return picture;
}

int differences(const Picture& a, const Picture& b) {
    int count = 0;
    for (size_t i = 0; i < a.pixels.size(); ++i) count += a.pixels[i] != b.pixels[i];
    return count;
}

// Each target pixel the mean of `factor` by `factor` source pixels.
Picture shrunk(const Picture& picture, int factor) {
    Picture small;
    small.resize(picture.width / factor, picture.height / factor);
    for (int y = 0; y < small.height; ++y) {
        for (int x = 0; x < small.width; ++x) {
            int r = 0, g = 0, b = 0;
            for (int i = 0; i < factor * factor; ++i) {
                const Rgb& p = picture.at(x * factor + i % factor, y * factor + i / factor);
                r += p.r, g += p.g, b += p.b;
            }
            const int n = factor * factor;
            small.row(y)[x] = {static_cast<uint8_t>(r / n), static_cast<uint8_t>(g / n),
                               static_cast<uint8_t>(b / n)};
        }
    }
    return small;
}

Picture centre(const Picture& picture, int width, int height) {
    Picture part;
    part.resize(width, height);
    const int left = (picture.width - width) / 2, top = (picture.height - height) / 2;
    for (int y = 0; y < height; ++y) std::copy_n(picture.row(top + y) + left, width, part.row(y));
    return part;
}

double meanDifference(const Picture& a, const Picture& b) {
    double sum = 0;
    for (size_t i = 0; i < a.pixels.size(); ++i) {
        sum += std::abs(a.pixels[i].r - b.pixels[i].r) + std::abs(a.pixels[i].g - b.pixels[i].g) +
               std::abs(a.pixels[i].b - b.pixels[i].b);
    }
    return sum / (3 * a.pixels.size());
}

}  // namespace

TEST(Scene, DependsOnNothingButTimeAndView) {
    CScene scene;
    Picture first, other, again;
    scene.draw(kNoon, {320, 240, 0}, first);
    for (uint32_t mode : {9u, 17u, 6u}) scene.draw(kNoon + 5000, findPreviewMode(mode)->view, other);
    scene.draw(kNoon, {320, 240, 0}, again);
    EXPECT_EQ(0, differences(first, again));
    EXPECT_EQ(0, differences(first, draw(kNoon, {320, 240, 0})));
}

TEST(Scene, MovesFromFrameToFrame) {
    for (const View& view : {View{320, 240, 0}, View{320, 240, 1}, View{320, 240, 2}, View{160, 120, 0}}) {
        EXPECT_GT(differences(draw(kNoon, view), draw(kNoon + 1000, view)), 50);
    }
}

TEST(Scene, ZoomShowsTheMiddleAtTwiceTheScale) {
    for (int zoom : {0, 1}) {
        const Picture wide = draw(kNoon, {640, 480, zoom});
        const Picture close = draw(kNoon, {640, 480, zoom + 1});
        EXPECT_LT(meanDifference(centre(wide, 320, 240), shrunk(close, 2)), 3.5);
        // Not the same picture, nor an enlargement of the same pixels: there is more to see.
        EXPECT_GT(meanDifference(wide, close), 15);
    }
}

TEST(Scene, ZoomShowsDetailThatEnlargingCannot) {
    const Picture wide = centre(draw(kNoon, {320, 240, 0}), 80, 60);
    const Picture close = draw(kNoon, {320, 240, 2});
    double worst = 0;
    for (int y = 0; y < 240; ++y) {
        for (int x = 0; x < 320; ++x)
            worst = std::max(worst, std::abs(wide.at(x / 4, y / 4).g - close.at(x, y).g) * 1.0);
    }
    EXPECT_GT(worst, 100);
}

TEST(Scene, TallStillShowsMoreNotStretched) {
    const Picture usual = draw(kNoon, {1280, 960, 0});
    const Picture tall = draw(kNoon, {1280, 1024, 0});
    EXPECT_LT(meanDifference(usual, centre(tall, 1280, 960)), 0.01);
}

TEST(Scene, HasSaturatedColoursGreysAndSkin) {
    const Picture picture = draw(kNoon, {640, 480, 0});
    int red = 0, green = 0, blue = 0, skin = 0;
    std::set<int> greys;
    for (const Rgb& p : picture.pixels) {
        red += p.r > 190 && p.g < 60 && p.b < 70;
        green += p.g > 130 && p.r < 60 && p.b < 90;
        blue += p.b > 170 && p.r < 60 && p.g < 90;
        skin += p.r > 200 && p.g > 140 && p.g < 190 && p.b > 110 && p.b < 160;
        if (p.r == p.g && p.g == p.b) greys.insert(p.r);
    }
    EXPECT_GT(red, 300);
    EXPECT_GT(green, 300);
    EXPECT_GT(blue, 300);
    EXPECT_GT(skin, 1000);
    EXPECT_GE(greys.size(), 8u);
}

TEST(Scene, WorksAtEveryTimeOfDay) {
    for (uint32_t time : {0u, 1u, kDayMilliseconds - 1, 0xFFFFFFFFu})
        EXPECT_FALSE(draw(time, {160, 120, 2}).empty());
}

TEST(TestCard, MessageIsReadableAtEveryZoom) {
    Picture plain, zoomed, other;
    drawTestCard("NO PICTURES", "here", {320, 240, 0}, plain);
    drawTestCard("NO PICTURES", "here", {320, 240, 2}, zoomed);
    EXPECT_LT(meanDifference(plain, zoomed), 0.5);
    drawTestCard("NO PICTURES", "there", {320, 240, 0}, other);
    EXPECT_GT(differences(plain, other), 20);
}

TEST(TestCard, LongAndForeignTextIsCutNotSpilled) {
    Picture picture;
    drawTestCard("NO PICTURES", std::string(500, '\xE9'), {160, 120, 0}, picture);
    // The message's panel reaches neither the top nor the bottom.
    EXPECT_EQ((Rgb{235, 235, 235}), picture.at(0, 0));
    EXPECT_EQ((Rgb{235, 235, 235}), picture.at(0, 119));
}
