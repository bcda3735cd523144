#include "handheld/korvoimgview/view_fit.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

constexpr Size kArea = {240, 260};

TEST(ViewFit, WholePictureTouchesTheNearerEdges) {
    const View wide = FitView({1280, 1024}, kArea);
    EXPECT_EQ(240, ScaledSize({1280, 1024}, wide.scale).width);
    EXPECT_EQ(192, ScaledSize({1280, 1024}, wide.scale).height);
    EXPECT_EQ(0, wide.x);
    EXPECT_EQ(34, wide.y);

    const View high = FitView({100, 1000}, kArea);
    EXPECT_EQ(260, ScaledSize({100, 1000}, high.scale).height);
    EXPECT_EQ(107, high.x);
    EXPECT_EQ(0, high.y);
}

TEST(ViewFit, SmallPicturesGrowFourfoldAtMost) {
    EXPECT_EQ(4 * kWhole, FitScale({10, 10}, kArea));
    EXPECT_EQ(kWhole * 3 / 2, FitScale({160, 120}, kArea));
}

TEST(ViewFit, EveryPictureKeepsAtLeastOnePixel) {
    const Size scaled = ScaledSize({60000, 1}, FitScale({60000, 1}, kArea));
    EXPECT_EQ(240, scaled.width);
    EXPECT_EQ(1, scaled.height);
}

TEST(ViewFit, LadderGoesUpAndBackDown) {
    const uint32_t fit = FitScale({1280, 1024}, kArea);
    uint32_t scale = fit;
    int steps = 0;
    while (LargerScale(scale, fit) != scale) {
        const uint32_t larger = LargerScale(scale, fit);
        EXPECT_GT(larger, scale);
        EXPECT_EQ(scale, SmallerScale(larger, fit));
        scale = larger;
        ++steps;
    }
    EXPECT_EQ(4 * kWhole, scale);
    EXPECT_EQ(8, steps);
    EXPECT_EQ(fit, SmallerScale(fit, fit));
}

TEST(ViewFit, LadderBeginsAboveALargeFit) {
    const uint32_t fit = kWhole * 3 / 2;
    EXPECT_EQ(2 * kWhole, LargerScale(fit, fit));
    EXPECT_EQ(fit, SmallerScale(2 * kWhole, fit));
    // Reached by the toggle, which leads below the fitting scale.
    EXPECT_EQ(2 * kWhole, LargerScale(kWhole, fit));
    EXPECT_EQ(kWhole, SmallerScale(kWhole, fit));
}

TEST(ViewFit, ToggleChangesBetweenWholeAndOwnSize) {
    EXPECT_EQ(kWhole, ToggledScale(kWhole / 5, kWhole / 5));
    EXPECT_EQ(kWhole / 5, ToggledScale(kWhole, kWhole / 5));
    EXPECT_EQ(kWhole / 5, ToggledScale(3 * kWhole, kWhole / 5));
    EXPECT_EQ(2 * kWhole, ToggledScale(kWhole, kWhole));
}

TEST(ViewFit, ZoomingKeepsTheMiddle) {
    const Size picture = {1280, 1024};
    const View fit = FitView(picture, kArea);
    const View whole = Zoomed(fit, picture, kArea, kWhole);
    EXPECT_EQ(-(1280 - 240) / 2, whole.x);
    EXPECT_EQ(-(1024 - 260) / 2, whole.y);
    const View moved = Panned(whole, picture, kArea, -100, 50);
    const View twice = Zoomed(moved, picture, kArea, 2 * kWhole);
    EXPECT_EQ(2 * (moved.x - 120) + 120, twice.x);
    EXPECT_EQ(2 * (moved.y - 130) + 130, twice.y);
    EXPECT_EQ(moved.x, Zoomed(twice, picture, kArea, kWhole).x);
}

TEST(ViewFit, PanningStopsAtThePicturesEdges) {
    const Size picture = {640, 480};
    const View whole = Zoomed(FitView(picture, kArea), picture, kArea, kWhole);
    EXPECT_EQ(0, Panned(whole, picture, kArea, 10000, 0).x);
    EXPECT_EQ(240 - 640, Panned(whole, picture, kArea, -10000, 0).x);
    EXPECT_EQ(0, Panned(whole, picture, kArea, 0, 10000).y);
    EXPECT_EQ(260 - 480, Panned(whole, picture, kArea, 0, -10000).y);
}

TEST(ViewFit, WhatFitsStaysInTheMiddle) {
    const View small = Panned({kWhole, 0, 0}, {100, 60}, kArea, 55, -70);
    EXPECT_EQ(70, small.x);
    EXPECT_EQ(100, small.y);
}

}  // namespace
}  // namespace viewer
