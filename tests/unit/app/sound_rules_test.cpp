#include "app/sound_rules.h"

#include <gtest/gtest.h>

namespace {

TEST(ZoomSound, FollowsMovieSound) {
    CameraSettings settings;
    settings.cameraSound = 1;
    settings.recordWithAudio = 0;
    EXPECT_FALSE(IsZoomAudible(settings));
    settings.cameraSound = 0;
    settings.recordWithAudio = 1;
    EXPECT_TRUE(IsZoomAudible(settings));
}

}  // namespace
