#include "device/preview_mode.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

namespace {

TEST(PreviewMode, FollowsResolutionAndZoom) {
    EXPECT_EQ(PreviewMode(0, 0), 4u);
    EXPECT_EQ(PreviewMode(0, 1), 9u);
    EXPECT_EQ(PreviewMode(0, 2), 17u);
    EXPECT_EQ(PreviewMode(1, 0), 6u);
    EXPECT_EQ(PreviewMode(1, 1), 20u);
    EXPECT_EQ(PreviewMode(1, 2), 21u);
    EXPECT_EQ(PreviewMode(2, 0), 0u);
    EXPECT_EQ(PreviewMode(-1, 0), 0u);
    EXPECT_EQ(PreviewMode(0, 3), 0u);
}

TEST(PreviewMode, HeaderAndScaleGoTogether) {
    const auto frame = std::make_unique<FrameBuffer>();
    const struct {
        int32_t resolution;
        uint32_t zoom;
        int headerTemplate;
        int32_t scale;
    } rows[] = {{0, 0, 1, 9}, {0, 1, 2, 9}, {0, 2, 2, 9}, {1, 0, 3, 10}, {1, 1, 3, 10}, {1, 2, 3, 10}};
    for (const auto& row : rows) {
        int32_t scale = 0;
        SelectPreviewHeader(*frame, scale, row.resolution, row.zoom);
        EXPECT_EQ(scale, row.scale);
        EXPECT_EQ(std::memcmp(frame->header, FindPreviewHeader(row.headerTemplate)->data(), kPreviewHeaderBytes), 0);
    }
}

TEST(PreviewMode, OtherResolutionsChangeNothing) {
    const auto frame = std::make_unique<FrameBuffer>();
    std::memset(frame->header, 0x5A, sizeof(frame->header));
    int32_t scale = 3;
    SelectPreviewHeader(*frame, scale, 9, 0);
    EXPECT_EQ(scale, 3);
    EXPECT_EQ(frame->header[0], 0x5A);
    EXPECT_EQ(frame->header[169], 0x5A);
}

TEST(PreviewMode, FrameLengthBounds) {
    EXPECT_FALSE(IsFrameLength(0));
    EXPECT_TRUE(IsFrameLength(1));
    EXPECT_TRUE(IsFrameLength(76209));
    EXPECT_FALSE(IsFrameLength(76210));
}

}  // namespace
